// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/SongChanges.h"

#include <algorithm>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/SongChoice.h"
#include "cli/support/UsageError.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

void printTitle(const QBSong& song) { Console::attached().printLine(fullTitle(song)); }

/// The title that is printed says all that the log would.
class Unlogged {
 public:
  Unlogged() : m_before(QBSession::session().views()) {
    SessionViews views = m_before;
    views.output = nullptr;
    QBSession::session().attach(views);
  }
  Unlogged(const Unlogged&) = delete;
  Unlogged& operator=(const Unlogged&) = delete;
  ~Unlogged() { QBSession::session().attach(m_before); }

 private:
  const SessionViews m_before;
};

void setLoop(const std::string& name, int from, int to) {
  QBSong& song = chooseSong(name);
  if (from == to) throw CliError("a loop has two ends: name two different chords");
  QBChord* first = chordAt(song, std::min(from, to));
  korvel::setLoop(song, *first, *chordAt(song, std::max(from, to)));
  printTitle(song);
}

void clearLoop(const std::string& name) {
  QBSong& song = chooseSong(name);
  korvel::clearLoop(song);
  printTitle(song);
}

void cloneSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  requireChords(song);
  Edit edit(song, platform::phrase("UndoAction", "Clone"));
  const auto album = AlbumNode::withSongs(song.album());
  album->findChild(&song)->copySong();
  QBSong& copy = *album->children().back()->song();
  keepTimes(song, copy);
  edit.save();
  printTitle(copy);
}

void renameSong(const std::string& name, const std::string& title) {
  QBSong& song = chooseSong(name);
  const Unlogged quiet;
  korvel::renameSong(song, title);
  printTitle(song);
}

void moveSong(const std::string& name, const std::string& album) {
  QBSong& song = chooseSong(name);
  const Unlogged quiet;
  korvel::moveSong(song, album);
  printTitle(song);
}

void mergeSongs(const std::string& name, const std::string& other) {
  QBSong& song = chooseSong(name);
  QBSong& added = chooseSong(other);
  requireChords(song);
  requireChords(added);
  Edit edit(song, platform::phrase("UndoAction", "Merge Songs"));
  const QBSong* merged = mergeWithSong(song, added);
  edit.save();
  printTitle(*merged);
}

void extractPart(const std::string& name, int from, int to) {
  QBSong& song = chooseSong(name);
  chordAt(song, from);
  chordAt(song, to);
  if (to < from) throw CliError("the part must end behind its begin: name the lower chord first");
  Edit edit(song, platform::phrase("UndoAction", "Extract Part"));
  const QBSong* part = extractPartOfSong(song, from, to);
  edit.save();
  printTitle(*part);
}

struct SongAndOther {
  std::string song;
  std::string other;  ///< A title, an album or a second song.
};

struct SongAndRange {
  std::string song;
  int from = 0, to = 0;
  bool clear = false;
};

struct Range {
  Option first, last;
};

Range addRange(Command& command, SongAndRange& range) {
  const Option first = command.option("FROM", range.from, "Position of a chord, from 1");
  Option last = command.option("TO", range.to, "Position of a chord");
  last.needs(first);
  return {first, last};
}

void addLoop(Command& tool) {
  Command& command = tool.command("loop", "Set the playback loop of a song");
  auto& options = command.own<SongAndRange>();
  needStoredSong(command, options.song);
  const Option last = addRange(command, options).last;
  Option off = command.flag("--clear", options.clear, "Take the loop away");
  off.excludes(last);
  command.checkAtOnce([last, off] {
    if (!last.isGiven() && !off.isGiven())
      throw UsageError("loop", "takes FROM and TO, or --clear");
  });
  command.does([&options] {
    options.clear ? clearLoop(options.song) : setLoop(options.song, options.from, options.to);
  });
}

void addExtract(Command& tool) {
  Command& command = tool.command("extract", "Copy chords to a new song");
  auto& options = command.own<SongAndRange>();
  needStoredSong(command, options.song);
  Range range = addRange(command, options);
  range.first.required();
  range.last.required();
  command.does([&options] { extractPart(options.song, options.from, options.to); });
}

/// A command on a song with one word more.
void addChange(Command& tool, const char* name, const char* description, const char* other,
               void (*change)(const std::string&, const std::string&)) {
  Command& command = tool.command(name, description);
  auto& options = command.own<SongAndOther>();
  needStoredSong(command, options.song);
  command.option(other, options.other, "").required().shownAs("");
  command.does([&options, change] { change(options.song, options.other); });
}

void addClone(Command& tool) {
  Command& command = tool.command("clone", "Copy a song");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { cloneSong(song); });
}

}  // namespace

void addSongChanges(Command& tool) {
  addLoop(tool);
  addClone(tool);
  addChange(tool, "rename", "Give a song another title", "TITLE", renameSong);
  addChange(tool, "move", "Move a song to an album, which is made when missing", "ALBUM", moveSong);
  addChange(tool, "merge", "Add the tones of another song, chord by chord, in a new song", "OTHER",
            mergeSongs);
  addExtract(tool);
}

}  // namespace korvel::cli
