// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/SongChoice.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/Numerals.h"

namespace korvel::cli {
namespace {

constexpr std::size_t kMostListed = 12;

using Songs = std::vector<QBSong*>;

template <class Test>
Songs songsWhere(const Test& test) {
  Songs found;
  for (const auto& album : QBTabMgr::db().albums())
    for (QBSong* song : album->songs())
      if (test(*song)) found.push_back(song);
  return found;
}

std::string lowered(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::string listOf(const Songs& songs) {
  std::string list;
  for (std::size_t i = 0; i < std::min(songs.size(), kMostListed); ++i)
    list += (i > 0 ? ", \"" : "\"") + fullTitle(*songs[i]) + '"';
  if (songs.size() > kMostListed)
    list += " and " + std::to_string(songs.size() - kMostListed) + " more";
  return list;
}

[[noreturn]] void unknown(const std::string& name) {
  Songs candidates = songsWhere([&](const QBSong& song) {
    return lowered(fullTitle(song)).find(lowered(name)) != std::string::npos;
  });
  if (candidates.empty()) candidates = songsWhere([](const QBSong&) { return true; });
  if (candidates.empty()) throw CliError("no song \"" + name + "\": the store holds no songs yet");
  throw CliError("no song \"" + name + "\"; there is " + listOf(candidates));
}

Songs songsNamed(const std::string& name) {
  return songsWhere(
      [&](const QBSong& song) { return song.title() == name || fullTitle(song) == name; });
}

/// "TITLE#2": the second of those that share a title.
QBSong* numberedSong(const std::string& name) {
  const std::size_t mark = name.rfind('#');
  if (mark == std::string::npos) return nullptr;
  const Songs found = songsNamed(name.substr(0, mark));
  const int number = platform::intValue(name.substr(mark + 1));
  return number >= 1 && number <= static_cast<int>(found.size())
             ? found[static_cast<std::size_t>(number - 1)]
             : nullptr;
}

}  // namespace

std::string fullTitle(const QBSong& song) {
  return (song.album() ? song.album()->name() : std::string()) + '/' + song.title();
}

void printTitle(const QBSong& song) { Console::attached().printLine(fullTitle(song)); }

QBSong& chooseSong(const std::string& name) {
  const Songs found = songsNamed(name);
  if (found.size() == 1) return *found.front();
  if (found.empty()) {
    if (QBSong* song = numberedSong(name)) return *song;
    unknown(name);
  }
  const auto whole = [&](const QBSong* song) { return fullTitle(*song) == name; };
  if (std::ranges::count_if(found, whole) == 1) return **std::ranges::find_if(found, whole);
  throw CliError("\"" + name + "\" could be " + listOf(found) +
                 "; write ALBUM/TITLE, and #2 behind it for the second of that title");
}

void requireChords(QBSong& song) {
  if (song.allChords().empty()) throw CliError(fullTitle(song) + ": the song has no chords");
}

QBChord* chordAt(QBSong& song, int position) {
  requireChords(song);
  const auto& chords = song.allChords();
  const auto found =
      std::ranges::find(chords, position, [](const auto& c) { return c->position(); });
  if (found != chords.end()) return *found;
  throw CliError(fullTitle(song) + ": has no chord " + std::to_string(position) + ", but chords " +
                 std::to_string(chords.front()->position()) + " to " +
                 std::to_string(chords.back()->position()));
}

QBAlbum& chooseAlbum(const std::string& name) {
  if (QBAlbum* album = QBTabMgr::db().findAlbumByName(name)) return *album;
  std::string known;
  for (const auto& album : QBTabMgr::db().albums())
    known += (known.empty() ? "\"" : ", \"") + album->name() + '"';
  throw CliError("no album \"" + name + "\"" + (known.empty() ? "" : "; there is " + known));
}

void addSong(Command& command, std::string& song) {
  command.option("SONG", song, "Title, or ALBUM/TITLE").required().shownAs("");
}

void needStoredSong(Command& command, std::string& song) {
  addSong(command, song);
  command.checkAtOnce();
  command.uses(Store::existing);
}

}  // namespace korvel::cli
