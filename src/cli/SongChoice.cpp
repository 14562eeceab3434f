// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SongChoice.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "cli/CliError.h"
#include "model/QBAlbum.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"

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

}  // namespace

std::string fullTitle(const QBSong& song) {
  return (song.album() ? song.album()->name() : std::string()) + '/' + song.title();
}

QBSong& chooseSong(const std::string& name) {
  const Songs found = songsWhere(
      [&](const QBSong& song) { return song.title() == name || fullTitle(song) == name; });
  if (found.empty()) unknown(name);
  const auto whole = [&](const QBSong* song) { return fullTitle(*song) == name; };
  if (std::ranges::count_if(found, whole) == 1) return **std::ranges::find_if(found, whole);
  if (found.size() > 1)
    throw CliError("\"" + name + "\" could be " + listOf(found) + "; write ALBUM/TITLE");
  return *found.front();
}

}  // namespace korvel::cli
