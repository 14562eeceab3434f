// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/ChordSearch.h"

#include <algorithm>
#include <vector>

#include "arrange/harmony/WrittenName.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"

namespace korvel {
namespace {

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsAlike(const std::string& name, std::string_view start) {
  return name.size() >= start.size() &&
         std::ranges::equal(start, std::string_view(name).substr(0, start.size()), {}, lowered,
                            lowered);
}

std::vector<std::string> namesOf(QBSong& song) {
  std::vector<std::string> names;
  for (const auto& chord : song.allChords()) names.push_back(shownName(*chord));
  return names;
}

}  // namespace

std::string shownName(const QBChord& chord) {
  const QBHold* hold = chord.hold();
  return hold && !hold->isEmpty() ? writtenName(chord) : std::string();
}

std::optional<int> findChord(QBSong& song, std::string_view name, int from,
                             SearchDirection direction) {
  const std::vector<std::string> names = namesOf(song);
  if (name.empty() || names.empty()) return std::nullopt;
  const bool exactly = std::ranges::find(names, name) != names.end();
  const int count = static_cast<int>(names.size());
  const int step = direction == SearchDirection::forward ? 1 : count - 1;
  int index = std::clamp(from, direction == SearchDirection::forward ? -1 : 0, count - 1) + count;
  for (int i = 0; i < count; ++i) {
    index = (index + step) % count;
    const std::string& candidate = names[static_cast<std::size_t>(index)];
    if (exactly ? candidate == name : startsAlike(candidate, name)) return index;
  }
  return std::nullopt;
}

}  // namespace korvel
