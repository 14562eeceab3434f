// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include "model/songs/QBChordVisitor.h"
#include "support/StandardStore.h"
#include "support/Testing.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/HandArrangements.h"
#include "workflow/arranging/QBMiddleVoiceFilter.h"
#include "workflow/arranging/VoiceArrangements.h"

namespace korvel {
namespace {

template <class Objects>
std::string positions(const Objects& objects) {
  std::string text;
  for (const auto& object : objects) text += std::to_string(object->position()) + ' ';
  return text;
}

struct QBSongTest : testing::Test {
  QBSongTest() {
    m_guitar = QBTabMgr::db().createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
    m_song = m_album->createSong("Song");
  }
  QBSong* songOf(const std::vector<int>& durations) {
    QBSong* song = m_album->createSong("Song");
    for (const int duration : durations) test::addChord(song, "x02210", duration);
    return song;
  }
  QBMeasure* measureOf(const std::vector<int>& durations, int beat, int beattype) {
    QBSong* song = songOf(durations);
    QBMeasure* measure = QBTabMgr::db().createMeasure(song, beat, beattype);
    for (QBChord* chord : song->chords()) measure->addChord(chord);
    return measure;
  }

  test::StandardStore m_store;
  QBAlbum* m_album = QBTabMgr::db().createAlbum("Album", false);
  QBInstrument* m_guitar;
  QBSong* m_song;
};

TEST_F(QBSongTest, chordsAreOrderedByPositionOnceAndForAll) {
  for (const int position : {3, 1, 2, 2}) m_song->createChord()->setPosition(position);
  const platform::Ref<QBChord> gone = m_song->allChords().at(0);
  EXPECT_EQ(positions(m_song->allChords()), "1 2 2 3 ");
  EXPECT_LT(m_song->allChords()[1]->objectId(), m_song->allChords()[2]->objectId());
  EXPECT_EQ(gone->timestamp(), 2) << "of chords that are made by hand";
  m_song->deleteChord(gone);
  EXPECT_EQ(m_song->createChord()->position(), 5);
  EXPECT_EQ(m_song->chords().size(), 4U);
  EXPECT_EQ(positions(m_song->allChords()), "1 2 2 3 ") << "as they were at the first call";
  EXPECT_EQ(gone->song(), nullptr);
  EXPECT_EQ(gone->hold(), nullptr);
}

TEST_F(QBSongTest, countersStartAgainAfterAReload) {
  m_song->createChord();
  QBTabMgr::db().createMeasure(m_song, 4, 4);
  QBTabMgr::db().save();
  QBTabMgr::clearDb();
  QBSong* read = QBTabMgr::db().findAlbumByIndex(0)->findSongByIndex(0);
  EXPECT_EQ(read->createChord()->position(), 1);
  EXPECT_EQ(QBTabMgr::db().createMeasure(read, 4, 4)->position(), 1);
  EXPECT_EQ(positions(read->allChords()), "1 1 ");
}

TEST_F(QBSongTest, rangesAreClampedToTheSong) {
  QBSong* song = songOf({1, 1, 1, 1, 1});
  EXPECT_EQ(positions(song->chordsInRange(2, 100)), "3 4 5 ");
  EXPECT_EQ(positions(song->chordsInRange(1, 3)), "2 3 ");
  EXPECT_EQ(positions(song->chordsInRange(-5, 1)), "1 ");
  EXPECT_EQ(positions(song->chordsInRange(3, 3)), "");
  EXPECT_EQ(positions(song->chordsInRange(9, 12)), "");
}

TEST_F(QBSongTest, visitorSeesEveryChordWithItsNeighbours) {
  class Notes final : public QBChordVisitor {
   public:
    void execute(QBChord* previous, QBChord* current, QBChord* next) override {
      for (const QBChord* chord : {previous, current, next})
        text += chord ? std::to_string(chord->position()) : "-";
      text += '@' + std::to_string(m_index()) + m_album()->name() + m_instrument()->name() + ' ';
      current->song()->deleteChord(current);
    }
    std::string text;
  } notes;
  songOf({1, 1, 1})->iterate(notes);
  EXPECT_EQ(notes.text, "-12@0AlbumGuitar 123@1AlbumGuitar 23-@2AlbumGuitar ");
  notes.text.clear();
  m_song->iterate(notes);
  EXPECT_EQ(notes.text, "");
}

TEST_F(QBSongTest, nearerEndOfTheLoopMoves) {
  QBSong* song = songOf(std::vector<int>(12, 1));
  const auto pick = [&](int position) {
    song->setChordInLoop(song->allChords().at(static_cast<std::size_t>(position - 1)));
    const auto end = [](const QBChord* chord) {
      return chord ? std::to_string(chord->position()) : "-";
    };
    return end(song->fromChord()) + ' ' + end(song->toChord());
  };
  EXPECT_EQ(pick(4), "4 -");
  EXPECT_EQ(pick(3), "3 -");
  EXPECT_EQ(pick(9), "3 9");
  EXPECT_EQ(pick(11), "3 11");
  EXPECT_EQ(pick(5), "5 11");
  EXPECT_EQ(pick(8), "5 8") << "a tie moves the end";
  EXPECT_EQ(pick(8), "5 8");
  EXPECT_EQ(pick(5), "5 8");
  EXPECT_EQ(pick(1), "1 8");
}

TEST_F(QBSongTest, equalDurationsFormGroupsOfOneTwoOrFour) {
  EXPECT_EQ(songOf({2, 2, 2, 4})->lookupGroupSize(0), 2) << "three make a group of two";
  EXPECT_EQ(songOf({2, 2, 4, 2})->lookupGroupSize(0), 2);
  EXPECT_EQ(songOf({2, 2, 2, 2, 2})->lookupGroupSize(0), 4);
  EXPECT_EQ(songOf({2, 2, 2, 2, 2})->lookupGroupSize(3), 2);
  EXPECT_EQ(songOf({2, 2, 2, 2, 2})->lookupGroupSize(4), 1) << "the last chord";
  EXPECT_EQ(songOf({2, 4})->lookupGroupSize(0), 1);
}

struct Group {
  std::vector<int> durations;
  int eighths, quarters;
};

// Runs of up to three for eighths and four for quarters, up to a sum of whole beats; a run that
// reaches none counts one more than it has, but for two and three.
const Group kGroups[] = {
    {{}, 1, 1},           {{3}, 1, 2},       {{1}, 1, 2},          {{1, 1}, 3, 2},
    {{1, 1, 1}, 3, 4},    {{1, 2}, 2, 2},    {{2, 2}, 3, 2},       {{2, 2, 2}, 3, 2},
    {{1, 1, 1, 1}, 3, 4}, {{4, 4}, 3, 1},    {{1, 1, 3, 3}, 4, 4}, {{6}, 1, 2},
    {{1, 3, 3}, 4, 2},    {{1, 1, 3}, 4, 4}, {{3, 2, 1, 1}, 1, 5},
};

TEST_F(QBSongTest, measuresAreGroupedByTheirBeat) {
  for (const Group& group : kGroups) {
    QBMeasure* measure = measureOf(group.durations, 6, 8);
    EXPECT_EQ(measure->lookupGroupSize(0), group.eighths)
        << testing::PrintToString(group.durations);
    measure->setBeattype(4);
    EXPECT_EQ(measure->lookupGroupSize(0), group.quarters)
        << testing::PrintToString(group.durations);
  }
  EXPECT_EQ(measureOf({1, 3, 3}, 6, 8)->lookupGroupSize(1), 1) << "from a chord on";
}

TEST_F(QBSongTest, measuresHoldTheirBeats) {
  QBMeasure* waltz = measureOf({4, 6}, 3, 4);
  EXPECT_EQ(waltz->durationValue(), 10);
  EXPECT_TRUE(waltz->fitsIn(2));
  EXPECT_FALSE(waltz->fitsIn(3));
  EXPECT_TRUE(measureOf({4, 6}, 6, 8)->fitsIn(2));
  EXPECT_FALSE(measureOf({4, 6}, 6, 8)->fitsIn(3));
  EXPECT_THROW(measureOf({4}, 4, 0)->fitsIn(1), std::domain_error);
  EXPECT_EQ(QBTabMgr::db().createMeasure(m_song, 4, 4)->durationValue(), 0);
}

TEST_F(QBSongTest, measuresAndTheirChordsAreOrderedAnewOnEachCall) {
  QBMeasure* measure = measureOf({1, 1, 1}, 4, 4);
  measure->chords().at(0)->setPosition(9);
  EXPECT_EQ(positions(measure->allChords()), "2 3 9 ");
  measure->chords().at(2)->setMeasure(nullptr);
  EXPECT_EQ(positions(measure->allChords()), "2 9 ");
  for (int i = 0; i < 3; ++i) QBTabMgr::db().createMeasure(m_song, 4, 4);
  m_song->measures().at(0)->setPosition(7);
  EXPECT_EQ(positions(m_song->allMeasures()), "2 3 7 ");
}

TEST_F(QBSongTest, cloneCopiesChordsIntoTheSameAlbum) {
  QBSong* song = QBTabMgr::db().createSong("Song", m_store.dropD(), nullptr, m_album);
  test::addChord(song, "x02210", 3)->setPosition(2);
  test::addChord(song, "022000", 5)->setPosition(1);
  QBTabMgr::db().createMeasure(song, 4, 4);
  QBSong* copy = song->clone();
  EXPECT_EQ(copy->title(), "Song");
  EXPECT_EQ(copy->album(), m_album);
  EXPECT_EQ(copy->tuning(), m_store.dropD());
  EXPECT_EQ(copy->instrument(), "Guitar") << "the one selected now";
  EXPECT_EQ(positions(copy->allChords()), "1 2 ");
  EXPECT_EQ(copy->allChords()[0]->duration(), 5) << "in order, and renumbered";
  EXPECT_EQ(copy->allChords()[1]->hold()->toStringClean(), "01220-");
  EXPECT_TRUE(copy->measures().empty());
  EXPECT_EQ(song->chords().size(), 2U);
}

// Of the longer song, given as the other one, each chord is merged with itself: the shorter one is
// not in it, as intended.
TEST_F(QBSongTest, mergingWithALongerSongGivesThatSong) {
  test::addChord(m_song, "xxxxx5");
  QBSong* longer = m_album->createSong("Longer");
  for (const char* frets : {"x02210", "022000"}) test::addChord(longer, frets);
  const QBSong* merged = mergeWithSong(*m_song, *longer);
  EXPECT_EQ(merged->title(), "Longer(mrg)");
  EXPECT_EQ(test::fretsOf(*merged), "x02210 022000 ");
  EXPECT_EQ(test::fretsOf(*mergeWithSong(*longer, *m_song)), "x0221[05] 022000 ");
}

// Counted in chords from the second one of a run on, a later chord having the fewer to come: the A
// string's run ends one chord before the D string's.
TEST_F(QBSongTest, middleTonesThatSoundOnLongestAreKept) {
  QBSong* song = m_album->createSong("song");
  test::addChord(song, "0xx1x0")->hold()->addTone(1, 2, 9e9);
  for (const char* frets : {"022xx0", "022xx0", "022xx0", "0x2xx0"}) test::addChord(song, frets);
  const QBSong* kept = QBMiddleVoiceFilter(song, 1).filter();
  EXPECT_EQ(test::fretsOf(*kept), "0xx1x0 02xxx0 0x2xx0 0x2xx0 0x2xx0 ")
      << "of the first chord, whose tones count nothing, the first in its hold";
  EXPECT_EQ(kept->title(), "song(mv)");
}

TEST_F(QBSongTest, handsAreSimplifiedOneAfterTheOther) {
  QBTabMgr::db().addPattern("---xxx", 9);
  QBTabMgr::db().addPattern("xxx---", 0);
  QBTabMgr::db().loadPatterns();
  test::addChord(m_song, "022100");
  const auto made = [this](QBSong* song) {
    EXPECT_EQ(song->tabulature(), toString(*song)) << "drawn under the final title";
    EXPECT_EQ(m_album->songs().size(), 2U) << "no song is left of the first step";
    const std::string text = song->title() + ' ' + test::fretsOf(*song);
    m_album->deleteSong(m_album->songs().at(1));
    return text;
  };
  EXPECT_EQ(made(toLeftRightHand(*m_song)), "Song(L+R) xxx100 ");
  EXPECT_EQ(made(toRightLeftHand(*m_song)), "Song(R+L) 022xxx ");
  m_song->chords().at(0)->hold()->findToneByString(3)->setAmp(1);
  EXPECT_EQ(made(removeSilent(*m_song, 0.5F)), "Song(-Slnt) 022x00 ");
}

TEST_F(QBSongTest, albumsFindCreateDeleteAndCloneSongs) {
  EXPECT_EQ(m_song->tuning(), m_store.standard()) << "that of the selected instrument";
  const QBSong* second = m_album->createSong("Song");
  EXPECT_EQ(m_album->findSongByName("Song"), m_song);
  EXPECT_EQ(m_album->findSongByName("song"), nullptr);
  test::addChord(m_song, "x02210");
  m_album->setLocked(true);
  const QBAlbum* copy = m_album->clone();
  EXPECT_EQ(copy->name(), "Album");
  EXPECT_TRUE(copy->isLocked());
  EXPECT_EQ(copy->songs().size(), 2U);
  EXPECT_EQ(copy->songs().at(0)->chords().size(), 1U);
  m_album->deleteSong(m_song);
  m_album->deleteSong(nullptr);
  EXPECT_EQ(m_album->findSongByName("Song"), second);
  QBTabMgr::db().deselectAllInstruments();
  EXPECT_EQ(m_album->createSong("New")->tuning(), nullptr);
}

}  // namespace
}  // namespace korvel
