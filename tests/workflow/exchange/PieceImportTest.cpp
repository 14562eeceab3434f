// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceImport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <regex>
#include <sstream>

#include "model/songs/SongTime.h"
#include "platform/text/UserError.h"
#include "support/RecordingViews.h"
#include "support/store/StandardStore.h"
#include "support/store/StoreContents.h"
#include "workflow/session/QBSession.h"

namespace korvel::test {
namespace {

using exchange::Piece;
using exchange::Track;

std::int64_t grains(double quarters) {
  return std::llround(quarters * static_cast<double>(exchange::kGrainsOfQuarter));
}

/// Words such as "1+.5:64@5.0": at the second quarter, an eighth long, pitch 64 on string 5, fret
/// 0.
Track track(const std::string& name, const std::string& notes, std::vector<int> open = {}) {
  Track made;
  made.name = name;
  made.open = std::move(open);
  std::istringstream words(notes);
  for (std::string word; words >> word;) {
    double at = 0, length = 0;
    exchange::Note note;
    std::sscanf(word.c_str(), "%lf+%lf:%d@%d.%d", &at, &length, &note.pitch, &note.string,
                &note.fret);
    note.at = grains(at);
    note.length = grains(length);
    made.notes.push_back(note);
  }
  return made;
}

/// Time signatures from 0 on; the first bar as long as that says, or as so many quarters.
std::vector<exchange::Bar> bars(const std::vector<std::pair<int, int>>& signatures,
                                double pickUp = 0) {
  std::vector<exchange::Bar> all;
  std::int64_t at = 0;
  for (const auto& [beats, type] : signatures) {
    const double length = all.empty() && pickUp > 0 ? pickUp : beats * 4.0 / type;
    all.push_back({at, grains(length), beats, type});
    at += grains(length);
  }
  return all;
}

class PieceImportTest : public testing::Test {
 protected:
  /// The tablature, and what the log said before the last line.
  std::string imported(const Piece& piece, const PieceChoices& choices = {}) {
    m_views.log.clear();
    PieceImport command("Song.mid", piece, choices);
    command.run();
    m_song = command.song();
    std::string log;
    for (std::size_t i = 0; i + 1 < m_views.log.size(); ++i) log += m_views.log[i] + '\n';
    static const std::regex ends(" +\n");
    return '\n' + std::regex_replace(m_song->tabulature(), ends, "\n") + log;
  }
  static std::string refusal(const Piece& piece, const PieceChoices& choices = {}) {
    try {
      PieceImport("Song.mid", piece, choices).run();
    } catch (const platform::UserError& error) {
      return error.what();
    }
    return "";
  }

  StandardStore m_store;
  RecordingViews m_views;
  platform::Ref<QBSong> m_song;
};

TEST_F(PieceImportTest, barsPlacesAndNamesAreThoseOfTheFile) {
  for (const char* type : {"", "m", "7"}) QBTabMgr::db().createHarmony(type, 0);
  QBTabMgr::db().loadHarmonies();
  Piece piece;
  piece.artist = "Anybody";
  piece.key = exchange::Key{7, false};
  piece.bars = bars({{3, 4}, {3, 4}, {6, 8}, {7, 8}}, 1);
  piece.tracks = {track("Guitar",
                        "0+.5:62@4.3 .5+.5:64@5.0 1+3:43@0.3 2+1:55@3.0 3+1:59@4.0 "
                        "4+1.5:64@5.0 5.5+.5:62@4.3 6+.5:60@4.1 7+.5:43@0.3 9.5+1:67@5.3")};
  piece.tracks[0].names = {{grains(1), "G"}, {grains(4.5), "Em/B"}, {grains(7), "D7x"}};
  EXPECT_EQ(imported(piece), R"(
    Recorded by Korvel
        Song

 |E---- ------0--------|
 |B---- -3-------------|
 |G---- ---------------|
 |D---- ---------------|
 |A---- ---------------|
 |E---- ---------------|
         |    |
         -    -

         3 .  + .

        G
 |E---- ----------------------------------------|
 |B---- ---------------------------0------------|
 |G---- --------------0-------------------------|
 |D---- ----------------------------------------|
 |A---- ----------------------------------------|
 |E---- -3--------------------------------------|
         |            |            |


         1 . + .      2 . + .      3 . + .

             Em
 |E---- -0------------------------------------|
 |B---- -------------------3----1-------------|
 |G---- --------------------------------------|
 |D---- --------------------------------------|
 |A---- --------------------------------------|
 |E---- --------------------------------------|
         |    |            |    |    r
         -                 -    -    -

         1 .  2 . 3 .      4 .  5 .  6 .


 |E---- -----------------------3--------|
 |B---- --------------------------------|
 |G---- --------------------------------|
 |D---- --------------------------------|
 |A---- --------------------------------|
 |E---- -3------------------------------|
         |    r   r       r    |
         -    -           -
not kept as it was: basses of chords (1), names of chords that the chord book does not have (1)
)");
  EXPECT_EQ(m_song->album()->name() + ',' + m_song->artist(), "Anybody,Anybody");
  EXPECT_EQ(m_song->key(), 7);
  EXPECT_EQ(m_song->tuning(), m_store.standard());

  piece.tracks = {track("Guitar", "0+1:66@5.0", {40, 45, 50, 55, 59, 64})};
  piece.tracks[0].capo = 2;
  piece.tracks[0].names = {{0, "G"}};
  piece.tracks[0].namesAreShapes = true;
  imported(piece);
  EXPECT_EQ(fretsOf(*m_song->allChords().front()), "xxxxx2");
  EXPECT_EQ(m_song->capo(), 2);
  EXPECT_EQ(m_song->allChords().front()->fullHarmonyName(), "A");

  QBHarmony* major = m_song->allChords().front()->harmony();
  for (int order = 0; const int step : {0, 4, 3}) major->addStep(order++, step);
  major->forgetCaches();
  for (const std::string name : {"G", "F#"}) {
    piece.tracks = {track("In Eb", "0+1:42@0.3 0+1:49@2.0 0+1:54@3.0", {39, 44, 49, 54, 58, 63})};
    piece.tracks[0].names = {{0, name}};
    piece.tracks[0].namesAreShapes = true;
    imported(piece);
    EXPECT_EQ(m_song->allChords().front()->fullHarmonyName(), "F#")
        << "of a hand, or of what sounds";
  }

  piece.tracks = {track("Guitar", "0+1:64@5.0", {40, 45, 50, 55, 59, 64})};
  piece.tracks[0].mayHaveCapo = true;
  imported(piece, {.capo = 3});
  EXPECT_EQ(fretsOf(*m_song->allChords().front()), "xxxxx3");
  EXPECT_EQ(m_song->capo(), 3);
}

/// What no string has comes onto the neck, two notes of a string do not meet at a tick, and tempi
/// that change become the times of chords.
TEST_F(PieceImportTest, whatASongCannotHaveIsCountedNotLost) {
  Piece piece;
  piece.title = " Fast\nand loose ";
  piece.left = {{"slides", 2}};
  piece.bars = bars({{4, 4}, {4, 4}});
  piece.tempos = {{0, 60}, {grains(4), 120}};
  piece.tracks = {track("Drums", "0+1:36"), track("Low", "0+1:28"),
                  track("Open G", "0+.95:38@0.0 1+.05:55@3.0 1.05+.45:57@3.2 2+.5:20 4+4:62@5.0",
                        {38, 43, 50, 55, 59, 62})};
  piece.tracks[0].isDrums = true;
  piece.tracks[0].left = {{"bends", 3}};  // of another track
  piece.tracks[2].left = {{"slides", 3}};
  EXPECT_EQ(imported(piece), R"(
    Recorded by Korvel
        Fast and loose

 |D---- -----------------------------------------------------|
 |B---- -----------------------------------------------------|
 |G---- --------------0--2-----------------------------------|
 |D---- -----------------------------------------------------|
 |G---- -------------------------------1---------------------|
 |D---- -0---------------------------------------------------|
         |            |  |   |r        |    r   r
                      -  -   --.       -    -
                      -3  3  -33
         1 . + .      2  2 .  + .      3 .  + . 4 . + .


 |D---- -0------------------------------------|
 |B---- --------------------------------------|
 |G---- --------------------------------------|
 |D---- --------------------------------------|
 |G---- --------------------------------------|
 |D---- --------------------------------------|
         o


         1 . + . 2 . + . 3 . + . 4 . + .
track 3 Open G is imported; there are also 1 Drums, 2 Low
not kept as it was: notes moved by octaves (1), notes moved to the nearest twelfth of a beat (1), slides (5)
)");
  EXPECT_EQ(m_song->title() + ',' + m_song->tuning()->descr(), "Fast and loose,Open G");
  EXPECT_EQ(SongTime(*m_song).secondsOf(72), 5);

  const PieceChoices standard{.track = "3", .tuning = m_store.standard()};
  imported(piece, standard);
  EXPECT_EQ(fretsOf(*m_song), "xx0xxx xx5xxx xxx2xx xxxxxx 4xxxxx xxxxxx xxxx3x ");
}

/// Riffs on a low D, and those of a bass, which no guitar reaches.
TEST_F(PieceImportTest, aTrackWithoutStringsTellsThemByItsLowNotes) {
  const auto riffs = [](int down) {
    std::string notes;
    int at = 0;
    for (int time = 0; time < 4; ++time)
      for (const int root : {38, 38, 41, 43, 38, 45, 43, 41}) {
        for (const int above : {0, 7, 12})
          notes += std::to_string(at) + "+1:" + std::to_string(root + above - down) + ' ';
        ++at;
      }
    return notes;
  };
  Piece piece;
  piece.tracks = {track("Guitar", riffs(0))};
  const std::string told = imported(piece);
  EXPECT_TRUE(told.ends_with("\nit names no tuning; by its low notes it is in Drop D\n")) << told;
  EXPECT_EQ(m_song->tuning()->descr(), "Drop D");
  EXPECT_EQ(fretsOf(*m_song).substr(0, 14), "000xxx 000xxx ");

  imported(piece, {.tuning = m_store.standard()});
  EXPECT_EQ(m_song->tuning(), m_store.standard()) << "as the user wants it";
  piece.tracks = {track("Bass", riffs(12))};
  imported(piece);
  EXPECT_EQ(m_song->tuning(), m_store.standard()) << "moved by octaves";
}

TEST_F(PieceImportTest, notesThatWerePlayedFreelyAreReadAsARecordingIs) {
  std::string notes;
  for (int i = 0; i < 32; ++i)  // eighths at 75, in a file that knows 120
    notes += std::to_string(.13 + i * .8 + .02 * (i % 3)) +
             "+.7:" + std::to_string(52 + i % 4 * 3) + ' ';
  Piece piece;
  piece.tracks = {track("Guitar", notes)};
  imported(piece, {.manner = PieceManner::asPlayed});
  EXPECT_NEAR(m_song->tempo(), 75, 1);
  imported(piece, {.manner = PieceManner::asWritten});
  EXPECT_EQ(m_song->tempo(), 120);
}

TEST_F(PieceImportTest, aTrackThatIsNoneOfAGuitarIsRefusedAndNothingStays) {
  Piece piece;
  piece.tracks = {track("Bass", "0+1:28@0.0", {28, 33, 38, 43}), track("Kit", "0+1:36")};
  piece.tracks[1].isDrums = true;
  EXPECT_EQ(refusal(piece),
            "Song.mid: track 1 Bass is for 4 strings, and songs are for six; choose another one, "
            "or have it fitted to six strings");
  EXPECT_EQ(refusal(piece, {.track = "Lead"}),
            "Song.mid: has no track \"Lead\"; it has 1 Bass, 2 Kit");
  EXPECT_EQ(refusal(piece, {.track = "2"}),
            "Song.mid: track 2 Kit is played by drums; choose another one");
  EXPECT_TRUE(QBTabMgr::db().albums().empty());
  imported(piece, {.fitsStrings = true});
  EXPECT_EQ(fretsOf(*m_song), "0xxxxx xxxxxx ");
  QBSession::session().undo();
  EXPECT_TRUE(QBTabMgr::db().albums().empty());
}

std::string stored() {
  QBTabMgr::db().save();
  return contentsOf(QBTabMgr::db().context().store());
}

TEST_F(PieceImportTest, cutShortAnywhereItLeavesNothing) {
  Piece piece;
  std::string notes;
  for (int i = 0; i < 3000; ++i)
    notes += std::to_string(i * .5) + "+.5:" + std::to_string(52 + i * 5 % 12) + ' ';
  piece.tracks = {track("Guitar", notes)};
  const std::string before = stored();
  PieceImport cancelled("Song.mid", piece, {});
  cancelled.runInBackground();
  cancelled.nextStep();
  ASSERT_TRUE(cancelled.isRunning());
  cancelled.cancelAndDrop();
  EXPECT_FALSE(cancelled.isRunning());
  EXPECT_EQ(stored(), before);

  piece.tracks = {track("Guitar", "0+1:64 1+1:62 2+2:60")};
  int parts = 0;
  PieceImport whole("Song.mid", piece, {});
  whole.onProgress([&](double) { ++parts; });
  whole.run();
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(stored(), before);
  ASSERT_GT(parts, 3);
  for (int last = 1; last <= parts; ++last) {
    PieceImport failing("Song.mid", piece, {});
    int part = 0;
    failing.onProgress([&](double) {
      if (++part == last) throw std::runtime_error("memory");
    });
    EXPECT_THROW(failing.run(), std::runtime_error);
    EXPECT_EQ(stored(), before) << last;
    EXPECT_TRUE(QBTabMgr::db().albums().empty()) << last;
    EXPECT_FALSE(QBSession::session().undo()) << last;
  }
}

TEST_F(PieceImportTest, barsAreAsLongAsTheyArePlayedAndAStringSoundsOneNote) {
  Piece piece;
  std::int64_t at = 0;
  for (const auto& [quarters, beats, type] :
       {std::tuple(4.0, 4, 4), {3.5, 4, 4}, {.25, 4, 4}, {5.0, 5, 3}, {1.5, 3, 4}}) {
    piece.bars.push_back({at, grains(quarters), beats, type});
    at += piece.bars.back().length;
  }
  // One note of two voices, two at one time, and two at the very end.
  piece.tracks = {track("Guitar",
                        "0+1:64@5.0 0+2:64@5.0 2+1:64@5.0 2+1:67@5.3 14.24+.01:64@5.0 "
                        "14.24+.01:65@5.1")};
  const std::string log = imported(piece);
  EXPECT_NE(log.find("notes on a string that sounds another one (1)"), std::string::npos) << log;
  std::string bars, tones;
  for (const auto& bar : m_song->allMeasures())
    bars += std::to_string(bar->beat()) + '/' + std::to_string(bar->beattype()) + ' ';
  EXPECT_EQ(bars, "4/4 7/8 1/16 5/4 3/8 ");
  const SongTime time(*m_song);
  for (std::size_t i = 0; i < m_song->allChords().size(); ++i)
    for (const QBTone* tone : m_song->allChords()[i]->hold()->tones())
      tones += std::to_string(time.tickOf(i)) + '+' + std::to_string(tone->ticks()) + '@' +
               std::to_string(tone->fret()) + ' ';
  EXPECT_EQ(tones, "0+24@0 24+1@0 25+11@3 164+1@0 ");
}

}  // namespace
}  // namespace korvel::test
