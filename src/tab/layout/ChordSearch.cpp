// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/ChordSearch.h"

#include <algorithm>
#include <vector>

#include "arrange/harmony/WrittenName.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "tab/layout/CapoNames.h"

namespace korvel {
namespace {

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool soundsNothing(const QBChord& chord) { return !chord.hold() || chord.hold()->isEmpty(); }

bool startsAlike(const std::string& name, std::string_view start) {
  return name.size() >= start.size() &&
         std::ranges::equal(start, std::string_view(name).substr(0, start.size()), {}, lowered,
                            lowered);
}

std::vector<CapoName> namesOf(QBSong& song) {
  const int capo = capoOfTablature(song);
  std::vector<CapoName> names;
  for (const auto& chord : song.allChords())
    names.push_back(soundsNothing(*chord) ? CapoName() : capoNameOf(*chord, capo));
  return names;
}

}  // namespace

std::string shownName(const QBChord& chord) {
  return soundsNothing(chord) ? std::string() : writtenName(chord);
}

std::optional<int> findChord(QBSong& song, std::string_view name, int from,
                             SearchDirection direction) {
  const std::vector<CapoName> names = namesOf(song);
  if (name.empty() || names.empty()) return std::nullopt;
  const auto isCalled = [&](const CapoName& each) {
    return each.sounding == name || each.shape == name;
  };
  const bool exactly = std::ranges::any_of(names, isCalled);
  const int count = static_cast<int>(names.size());
  const int step = direction == SearchDirection::forward ? 1 : count - 1;
  int index = std::clamp(from, direction == SearchDirection::forward ? -1 : 0, count - 1) + count;
  for (int i = 0; i < count; ++i) {
    index = (index + step) % count;
    const CapoName& candidate = names[static_cast<std::size_t>(index)];
    const bool startsSo =
        startsAlike(candidate.sounding, name) || startsAlike(candidate.shape, name);
    if (exactly ? isCalled(candidate) : startsSo) return index;
  }
  return std::nullopt;
}

}  // namespace korvel
