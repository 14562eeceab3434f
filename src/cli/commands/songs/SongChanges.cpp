// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/SongChanges.h"

#include <algorithm>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/SongChoice.h"
#include "cli/support/UsageError.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/TuningForNow.h"

namespace korvel::cli {
namespace {

/// Draws songs for the tuning that they were made in.
void redraw(QBSong& song) {
  const TuningForNow chosen(song.tuning());
  if (!song.chords().empty()) buildTab(song);
}

void saveAndPrint(const QBSong& song) {
  QBTabMgr::db().context().save();
  Console::attached().printLine(fullTitle(song));
}

QBAlbum& albumFor(const std::string& name) {
  QBTabMgr& db = QBTabMgr::db();
  QBAlbum* known = db.findAlbumByName(name);
  return known ? *known : *db.createAlbum(name, false);
}

void setLoop(const std::string& name, int from, int to) {
  QBSong& song = chooseSong(name);
  if (from == to) throw CliError("a loop has two ends: name two different chords");
  QBChord* first = chordAt(song, std::min(from, to));
  QBChord* last = chordAt(song, std::max(from, to));
  song.setFromChord(nullptr);
  song.setToChord(nullptr);
  song.setChordInLoop(first);
  song.setChordInLoop(last);
  redraw(song);
  saveAndPrint(song);
}

void clearLoop(const std::string& name) {
  QBSong& song = chooseSong(name);
  song.setFromChord(nullptr);
  song.setToChord(nullptr);
  redraw(song);
  saveAndPrint(song);
}

void cloneSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  requireChords(song);
  const TuningForNow chosen(song.tuning());
  const auto album = AlbumNode::withSongs(song.album());
  album->findChild(&song)->copySong();
  saveAndPrint(*album->children().back()->song());
}

void renameSong(const std::string& name, const std::string& title) {
  QBSong& song = chooseSong(name);
  if (title.empty()) throw CliError("a song needs a title");
  const QBSong* other = song.requireAlbum().findSongByName(title);
  if (other && other != &song)
    throw CliError(fullTitle(*other) + ": there is a song of that title already");
  song.setTitle(title);
  redraw(song);
  saveAndPrint(song);
}

void moveSong(const std::string& name, const std::string& albumName) {
  QBSong& song = chooseSong(name);
  if (albumName.empty()) throw CliError("an album needs a name");
  QBAlbum& album = albumFor(albumName);
  if (&album != song.album()) {
    const std::string title = QBNameMgr(&album, song.title()).newName();
    song.setAlbum(&album);
    if (title != song.title()) {
      song.setTitle(title);
      redraw(song);
    }
  }
  saveAndPrint(song);
}

void mergeSongs(const std::string& name, const std::string& other) {
  QBSong& song = chooseSong(name);
  QBSong& added = chooseSong(other);
  requireChords(song);
  requireChords(added);
  const TuningForNow chosen(song.tuning());
  QBSong* merged = mergeWithSong(song, added);
  saveAndPrint(*merged);
}

void extractPart(const std::string& name, int from, int to) {
  QBSong& song = chooseSong(name);
  chordAt(song, from);
  chordAt(song, to);
  if (to < from) throw CliError("the part must end behind its begin: name the lower chord first");
  const TuningForNow chosen(song.tuning());
  QBSong* part = extractPartOfSong(song, from, to);
  saveAndPrint(*part);
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
