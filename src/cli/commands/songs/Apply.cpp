// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/Apply.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

struct ApplyOptions {
  std::vector<std::string> words;    ///< The song, unless `all`, and names of commands.
  std::optional<std::string> album;  ///< Where the song is, or whose songs are all meant.
  bool all = false;                  ///< Every song of the album.
  bool list = false;                 ///< Prints the menu instead.
  Manner manner = Manner::forPlayers;

  std::size_t firstCommand() const { return all ? 0 : 1; }
  std::span<const std::string> commands() const { return std::span(words).subspan(firstCommand()); }
};

using Songs = std::vector<platform::Ref<QBSong>>;

constexpr std::string_view kDelete = "deleteSong";

Songs songsOf(const ApplyOptions& options) {
  if (options.all) return chooseAlbum(*options.album).songs().snapshot();
  if (!options.album) return {&chooseSong(options.words.front())};
  return {&chooseSong(*options.album + '/' + options.words.front())};
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

bool order(QBSongNode& node, const std::string& command, Manner manner) {
  try {
    return orderOf(node, *findSongCommand(command), manner);
  } catch (const EditRefused& reason) {
    throw CliError(reason.what());
  }
}

void perform(const AlbumNode& album, const std::string& command, Manner manner) {
  QBSongNode& node = activeNode(album, command);
  requireChords(*node.song(), command);
  const std::string title = fullTitle(*node.song());
  const std::size_t before = album.children().size();
  if (!order(node, command, manner))
    throw CliError(title + ": " + command + " failed, as said above" + leftBehind(album));
  printFrom(album, before);
}

void applyTo(QBSong& song, const ApplyOptions& options) {
  const auto album = AlbumNode::withSongs(song.album());
  QBSession::session().setActiveSong(&song);
  for (const std::string& command : options.commands()) perform(*album, command, options.manner);
}

/// Runs the commands in turn, each on the song that the one before made active. A command that
/// fails ends the run for its song; what was made before stays. Answers the exit status.
int applyCommands(const ApplyOptions& options) {
  int status = EXIT_SUCCESS;
  for (const auto& song : songsOf(options)) {
    try {
      applyTo(*song, options);
    } catch (const CliError& error) {
      Console::attached().error(error.what());
      status = EXIT_FAILURE;
    }
  }
  QBTabMgr::db().context().save();
  return status;
}

/// The menu of a song as a tree.
void listCommands() {
  for (const SongMenuSection& section : songMenu()) {
    const std::string indent = section.title.empty() ? "" : "  ";
    if (!section.title.empty())
      Console::attached().print(std::string(section.title.english) + '\n');
    for (const SongCommand& item : section.items)
      Console::attached().print(indent + std::string(item.title.english) + "  [" +
                                std::string(item.command) + "]\n");
    if (section.isSeparator()) Console::attached().print("----\n");
  }
}

void checkWords(const ApplyOptions& options) {
  if (options.all && !options.album) throw UsageError("--all", "goes with --album");
  if (options.words.size() <= options.firstCommand())
    throw UsageError("apply", "takes a song and a command or more");
  for (const std::string& word : options.commands())
    if (!findSongCommand(word))
      throw UsageError(word, "is no command; korvel-cli apply --list prints them");
}

}  // namespace

void addApply(Command& tool) {
  Command& command = tool.command("apply", "Derive songs by the commands of the song menu");
  auto& options = command.own<ApplyOptions>();
  command.option("SONG", options.words, "Song, unless --all, and commands in turn")
      .shownAs("[SONG] COMMAND...");
  command.flag("--list", options.list, "Print the menu with the names of the commands");
  command.option("--album", options.album, "Album that the song is in").shownAs("ALBUM");
  command.flag("--all", options.all, "Every song of the album");
  auto& literal = command.own<bool>();
  command.flag("--literal", literal,
               "By the letter: where tones go, whether or not a hand can play it");
  command.checkLast([&] {
    if (!options.list) checkWords(options);
    command.uses(options.list ? Store::none : Store::existing);
  });
  command.does([&options, &literal] {
    if (literal) options.manner = Manner::literal;
    if (!options.list) return applyCommands(options);
    listCommands();
    return EXIT_SUCCESS;
  });
}

}  // namespace korvel::cli
