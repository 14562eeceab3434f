// SPDX-License-Identifier: GPL-3.0-or-later
#include <malloc.h>

#include <regex>

#include "model/store/KorvelModel.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/Sqlite.h"
#include "support/Approved.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/sound/Guitar.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/SongCommands.h"

namespace korvel {
namespace {

using test::linesOf;

using Samples = std::vector<std::int16_t>;

/// The length of so many blocks, which each become a chord.
double blocks(int count) { return (count * 16384 + 0.5) / 44100.0; }

Samples mixed(Samples a, const Samples& b) {
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    a[i] = static_cast<std::int16_t>(a[i] + b[i]);
  return a;
}

/// Four grips, with harmonies of three to five tones.
Samples strummed() {
  return test::play({{test::notesOf("x02210"), blocks(5)},
                     {test::notesOf("133211"), blocks(2)},
                     {test::notesOf("x54210"), blocks(3)},
                     {test::notesOf("320001"), blocks(3)}});
}

/// A bass that rings below changing upper tones.
Samples picked() {
  std::vector<test::Strum> upper;
  for (const int note : {64, 60, 57, 64, 60, 57, 65, 62, 59, 65, 62, 59})
    upper.push_back({{note}, blocks(1)});
  return mixed(test::play({{{45}, blocks(6)}, {{43}, blocks(6)}}), test::play(upper));
}

Samples melody() {
  std::vector<test::Strum> notes;
  for (const auto& [note, length] : std::vector<std::pair<int, int>>{
           {64, 2}, {67, 1}, {69, 1}, {72, 3}, {71, 1}, {69, 1}, {67, 2}, {40, 1}})
    notes.push_back({{note}, blocks(length)});
  return test::play(notes);
}

/// Everything that a command did, the store's folder left out.
std::string report(const test::SongDesk& desk, const std::string& command,
                   const test::Performance& performance) {
  std::string text = "# " + command + '\n';
  for (std::string line : performance.log) {
    const std::string folder = desk.folder().file("");
    if (line.starts_with(folder)) line = test::readFile(line);
    line = std::regex_replace(line, std::regex("\r\n"), " ");
    text += "> " + line + '\n';
  }
  if (QBTabMgr::db().context().hasChanges()) text += "not saved\n";
  for (const auto& song : performance.songs) {
    const bool active = QBSession::session().activeSong() == song.get();
    text += "= " + song->title() + (active ? " (active)\n" : "\n") + linesOf(*song);
  }
  return text + '\n';
}

struct SongCommandsTest : testing::Test {
  /// All commands of the menu on one song; the last one deletes it.
  void expectCommandsApproved(const Samples& recording, const std::string& title) {
    QBSong* source = m_desk.import(recording, title);
    std::string text = "= " + title + '\n' + linesOf(*source) + '\n';
    QBTabMgr::db().save();
    for (const std::string& command : test::songCommands()) {
      const test::Performance performance = m_desk.perform(source, command);
      text += report(m_desk, command, performance);
      for (const auto& song : performance.songs)
        EXPECT_EQ(song->tabulature(), song->chords().empty() ? "" : toString(*song)) << command;
      m_desk.deleteSongs(performance.songs);
      QBTabMgr::db().save();
    }
    EXPECT_TRUE(m_desk.album()->songs().empty());
    test::expectApproved(text, "commands/" + title + ".txt");
  }
  /// The number of rows in each table once the store has been opened again.
  std::map<std::string, std::int64_t> reopenedCounts() {
    m_desk.reopen();
    std::map<std::string, std::int64_t> counts;
    for (const auto& entity : korvelModel().entities())
      counts[entity.name] = QBTabMgr::db().context().store().integer(
          "SELECT count(*) FROM " + platform::sqlName(entity.name));
    return counts;
  }
  QBSong* song(const std::string& title) { return m_desk.album()->findSongByName(title); }

  test::SongDesk m_desk;
};

TEST_F(SongCommandsTest, strummedSongIsArrangedAsApproved) {
  expectCommandsApproved(strummed(), "Strummed");
}

TEST_F(SongCommandsTest, pickedSongIsArrangedAsApproved) {
  expectCommandsApproved(picked(), "Picked");
}

TEST_F(SongCommandsTest, melodyIsArrangedAsApproved) { expectCommandsApproved(melody(), "Melody"); }

TEST(SongMenu, standsAsApproved) {
  std::ostringstream text;
  for (const SongMenuSection& section : songMenu()) {
    text << (section.isSeparator() ? "--" : "= ") << section.title.english << '\n';
    for (const SongCommand& item : section.items)
      text << item.title.english << " | " << item.action << " | " << item.command << '\n';
  }
  test::expectApproved(text.str(), "commands/Menu.txt");
}

/// 0 under a sanitizer, whose allocator answers no such question.
std::size_t bytesInUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

TEST_F(SongCommandsTest, twoHundredCommandsLeaveNothing) {
  m_desk.import(strummed(), "Song");
  const auto counts = reopenedCounts();
  const std::string chords = linesOf(*song("Song"));
  const std::size_t bytes = bytesInUse();
  std::vector<std::string> commands = test::songCommands();
  ASSERT_EQ(commands.back(), "deleteSong");
  commands.pop_back();
  for (std::size_t i = 0; i < 200; ++i) m_desk.perform(song("Song"), commands[i % commands.size()]);
  EXPECT_GT(m_desk.album()->songs().size(), 200U) << "some make several";
  for (const auto& each : m_desk.album()->songs().snapshot())
    if (each->title() != "Song") m_desk.perform(each, "deleteSong");
  EXPECT_EQ(reopenedCounts(), counts);
  auto& store = QBTabMgr::db().context().store();
  EXPECT_EQ(store.column("SELECT title FROM QBSong"), std::vector<std::string>{"Song"});
  EXPECT_EQ(store.column("SELECT name FROM QBAlbum"), std::vector<std::string>{"Album"});
  EXPECT_EQ(linesOf(*song("Song")), chords);
  EXPECT_LE(static_cast<double>(bytesInUse()), 1.1 * static_cast<double>(bytes));
}

}  // namespace
}  // namespace korvel
