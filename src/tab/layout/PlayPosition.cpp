// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/PlayPosition.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {
namespace {

int indexOfPosition(QBSong& song, int position) {
  const auto& chords = song.allChords();
  const auto at = std::ranges::find_if(
      chords, [position](const auto& chord) { return chord->position() >= position; });
  return static_cast<int>(at - chords.begin());
}

}  // namespace

std::optional<int> chordAtPlayPosition(QBSong& song, float fraction) {
  const int count = static_cast<int>(song.allChords().size());
  const int from = song.fromChord() ? song.fromChord()->position() : 0;
  const int to = song.toChord() ? song.toChord()->position() : count;
  const float played = fraction * static_cast<float>(to - from);
  // A loop of one chord reports an infinite fraction.
  if (count == 0 || !(played >= 0.5F || std::isnan(played))) return std::nullopt;
  const int first = indexOfPosition(song, from);
  const int steps =
      std::isfinite(played) ? std::min(static_cast<int>(std::lround(played)), count) : 1;
  return std::min(first + steps - 1, count - 1);
}

}  // namespace korvel
