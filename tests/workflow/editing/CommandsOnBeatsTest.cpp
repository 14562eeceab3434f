// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"
#include "arrange/strumming/StrumPatterns.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "music/Ticks.h"
#include "support/Approved.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/guided/EasyVersion.h"
#include "workflow/arranging/guided/PatternStrummed.h"
#include "workflow/arranging/guided/SingAlong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

constexpr const char* kWaltz =
    "key=9 3/4 xxxxx0 q | x02210 q_1h. xx2210 e3 e3 e3 rq | 133211 h rq | "
    "320003 q xxxxx5 e xxxxx3 e 320003 q | 320003 q x02210 h | ~q 320003 q rq |";
constexpr const char* kJig =
    "key=16 6/8 xxxxx0 e | x02210 q_1h. xx2210 e xx0003 q. | 133211 q. rq. |";

/// Bars with the ticks and frets of their chords, and by string the ticks of tones that have
/// others.
std::string written(QBSong& song) {
  std::string text;
  for (const auto& measure : song.allMeasures()) {
    text += std::to_string(measure->beat()) + '/' + std::to_string(measure->beattype()) + " |";
    for (const auto& chord : measure->allChords()) {
      const std::string ticks = std::to_string(chord->ticks());
      std::string lengths;
      bool differ = false;
      for (const auto& tone : byStringAndFret(*chord)) {
        lengths += (lengths.empty() ? "(" : ",") + std::to_string(tone->ticks());
        differ |= tone->ticks() != chord->ticks();
      }
      text += ' ' + ticks + (lengths.empty() ? "" : ':' + test::fretsOf(*chord));
      if (differ) text += lengths + ')';
    }
    text += '\n';
  }
  return text;
}

struct CommandsOnBeatsTest : testing::Test {
  QBSong* song(const char* text) {
    QBSong* made = test::beatSong(m_desk.album()->createSong("Song"), text);
    std::int64_t sample = 40000;
    for (const auto& chord : made->allChords()) {
      chord->setTimestamp(sample);
      chord->setBeatTime(sample);
      sample += 2000 * chord->ticks();
      if (!tonesOf(*chord).empty()) readHarmony(*chord);
    }
    buildTab(*made);
    return made;
  }
  std::vector<platform::Ref<QBSong>> ordered(QBSong* source, const std::string& command) {
    const auto before = m_desk.album()->songs().size();
    const auto album = AlbumNode::withSongs(m_desk.album());
    try {
      album->findChild(source)->perform(*findSongCommand(command), Manner::forPlayers);
    } catch (const EditRefused&) {  // it would leave nothing to play
    }
    const auto songs = m_desk.album()->songs().snapshot();
    return {songs.begin() + static_cast<std::ptrdiff_t>(before), songs.end()};
  }
  static void expectFullBars(QBSong& song) {
    std::map<int, int> ticks;
    for (const auto& chord : song.allChords()) {
      ASSERT_TRUE(chord->measure());
      ticks[chord->measure()->position()] += chord->ticks();
      for (const auto& tone : tonesOf(*chord)) EXPECT_GT(tone->ticks(), 0);
    }
    const QBMeasure& bar = *song.allMeasures().front();
    const int full = ticksOfBar(bar.beat(), bar.beattype());
    for (const auto& [position, sum] : ticks)
      EXPECT_TRUE(sum == full || (position == 1 && sum < full)) << position;
  }
  /// Where it strikes something, and its end.
  static std::set<int> placesOf(QBSong& song) {
    const SongTime time(song, SongTime::Tempo::strict);
    std::set<int> places{time.end()};
    for (std::size_t i = 0; i < song.allChords().size(); ++i)
      if (!tonesOf(*song.allChords()[i]).empty()) places.insert(time.tickOf(i));
    return places;
  }
  static void expectKept(QBSong& source, QBSong& made, const std::string& command) {
    static const std::set<std::string> changeTime{"extractVoicings", "extract3_4", "extract4_4",
                                                  "extract6_8", "extract12_8"};
    const int steps =
        command.starts_with("transpose") ? std::stoi(command.substr(command.find("By") + 2)) : 0;
    const int shift = command.starts_with("transposeDown") ? 12 - steps : steps;
    expectFullBars(made);
    EXPECT_EQ(made.key(), source.key() / 12 * 12 + (source.key() + shift) % 12);
    EXPECT_EQ(SongTime(made).isAsRecorded(), command != "extractVoicings");
    if (changeTime.contains(command)) return;
    EXPECT_TRUE(std::ranges::includes(placesOf(source), placesOf(made)));
    EXPECT_EQ(made.tempo(), source.tempo());
  }

  test::SongDesk m_desk;
};

TEST_F(CommandsOnBeatsTest, everyCommandKeepsBarsAndPlaces) {
  for (const char* text : {kWaltz, kJig}) {
    QBSong* source = song(text);
    for (const std::string& command : test::songCommands()) {
      if (command == "deleteSong") continue;
      const auto made = ordered(source, command);
      for (const auto& each : made) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, command + '\n' + written(*each));
        expectKept(*source, *each, command);
      }
      m_desk.deleteSongs(made);
    }
    for (const SongGuide& guide : {singAlong({}), easyVersion({})})
      expectKept(*source, guide.accept(*source), "guide");
    m_desk.deleteSongs(m_desk.album()->songs().snapshot());
  }
}

TEST_F(CommandsOnBeatsTest, chordsAreStrummedInPatterns) {
  std::string text;
  for (const auto& [source, pattern] : {std::pair(kWaltz, "bass"), {kJig, "offbeat"}}) {
    QBSong& made = strummedBy(*strumPatternNamed(pattern)).accept(*song(source));
    text += std::string("# ") + pattern + ' ' + made.title() + '\n' + written(made);
    EXPECT_TRUE(SongTime(made).isAsRecorded());
    // Strummed again it has the same grips.
    EXPECT_EQ(written(strummedBy(*strumPatternNamed(pattern)).accept(made)), written(made));
  }
  test::expectApproved(text, "commands/InPatterns.txt");
}

TEST_F(CommandsOnBeatsTest, songsAreArrangedAsApproved) {
  QBSong* source = song(kWaltz);
  std::string text = written(*source);
  for (const char* command : {"extractMelody", "extractBrass", "cleanChords", "pushDownStrings",
                              "transposeUpBy2", "extract4_4", "extract6_8", "extractVoicings"})
    text += std::string("\n# ") + command + '\n' +
            written(*m_desk.perform(source, command).songs.at(0));
  text += "\n# part\n" + written(*extractPartOfSong(*source, 3, 8));
  text +=
      "\n# merged\n" + written(*mergeWithSong(*song("xxxxx0 h h |"), *song("x0xxxx q. q. q |")));
  test::expectApproved(text, "commands/OnBeats.txt");
}

}  // namespace
}  // namespace korvel
