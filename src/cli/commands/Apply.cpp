// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/Apply.h"

#include <cstdlib>
#include <memory>

#include "cli/support/CliError.h"
#include "cli/support/Console.h"
#include "cli/support/SongChoice.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/TuningForNow.h"

namespace korvel::cli {
namespace {

using Songs = std::vector<platform::Ref<QBSong>>;

constexpr std::string_view kDelete = "deleteSong";

Songs songsOf(const ApplyOptions& options) {
  if (options.all) return chooseAlbum(*options.album).songs().snapshot();
  if (!options.album) return {&chooseSong(options.song)};
  return {&chooseSong(*options.album + '/' + options.song)};
}

QBSongNode& activeNode(const AlbumNode& album, const std::string& command) {
  if (QBSongNode* node = album.findChild(QBSession::session().activeSong())) return *node;
  throw CliError(command + " has no song to work on any more");
}

void requireChords(const QBSong& song, const std::string& command) {
  if (song.chords().empty() && command != kDelete)
    throw CliError(fullTitle(song) + ": the song has no chords, so " + command +
                   " has nothing to do");
}

void printFrom(const AlbumNode& album, std::size_t first) {
  for (std::size_t i = first; i < album.children().size(); ++i)
    Console::attached().printLine(album.children()[i]->title());
}

/// Songs that a command made before it failed; they are in no tree.
std::string leftBehind(const AlbumNode& album) {
  std::string list;
  for (const QBSong* song : album.album()->songs())
    if (!album.findChild(song)) list += (list.empty() ? "\"" : ", \"") + fullTitle(*song) + '"';
  return list.empty() ? list : "; it left " + list + " behind";
}

void perform(const AlbumNode& album, const std::string& command) {
  QBSongNode& node = activeNode(album, command);
  requireChords(*node.song(), command);
  const std::string title = fullTitle(*node.song());
  const std::size_t before = album.children().size();
  if (!node.perform(command))
    throw CliError(title + ": " + command + " failed, as said above" + leftBehind(album));
  printFrom(album, before);
}

void applyTo(QBSong& song, const std::vector<std::string>& commands) {
  const TuningForNow chosen(song.tuning());
  const auto album = AlbumNode::withSongs(song.album());
  QBSession::session().setActiveSong(&song);
  for (const std::string& command : commands) perform(*album, command);
}

}  // namespace

int applyCommands(const ApplyOptions& options) {
  int status = EXIT_SUCCESS;
  for (const auto& song : songsOf(options)) {
    try {
      applyTo(*song, options.commands);
    } catch (const CliError& error) {
      Console::attached().error(error.what());
      status = EXIT_FAILURE;
    }
  }
  QBTabMgr::db().context().save();
  return status;
}

void listCommands() {
  for (const SongMenuSection& section : songMenu()) {
    const std::string indent = section.title.empty() ? "" : "  ";
    if (!section.title.empty()) Console::attached().print(std::string(section.title) + '\n');
    for (const SongCommand& item : section.items)
      Console::attached().print(indent + std::string(item.title) + "  [" +
                                std::string(item.command) + "]\n");
    if (section.isSeparator()) Console::attached().print("----\n");
  }
}

}  // namespace korvel::cli
