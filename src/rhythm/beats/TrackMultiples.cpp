// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/TrackMultiples.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "rhythm/Reading.h"

namespace korvel::rhythm {
namespace {

/// In ticks of the track that is multiplied.
constexpr std::array<int, 11> kLengthTicks{3, 4, 6, 8, 9, 12, 16, 18, 24, 36, 48};

/// The time of a place that counts beats from the first one; beats go on evenly at both ends.
double timeAt(const BeatTrack& track, double beat) {
  const double last = static_cast<double>(track.size() - 2);
  const double below = std::clamp(std::floor(beat), 0.0, last);
  const auto i = static_cast<std::size_t>(below);
  return track[i] + (beat - below) * (track[i + 1] - track[i]);
}

BeatTrack multiple(const BeatTrack& track, int shift, int ticks, double from, double to) {
  BeatTrack result;
  const auto at = [&](int n) {
    return timeAt(track, static_cast<double>(shift + n * ticks) / kTicksOfBeat);
  };
  int n = 0;
  while (at(n) > from) --n;
  for (; result.size() < 2 || result.back() <= to; ++n) result.push_back(at(n));
  return result;
}

}  // namespace

double medianBeat(const BeatTrack& track) {
  std::vector<double> lengths;
  for (std::size_t i = 0; i + 1 < track.size(); ++i) lengths.push_back(track[i + 1] - track[i]);
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, middle);
  return *middle;
}

std::size_t nearestBeat(const BeatTrack& track, double time) {
  const auto after =
      static_cast<std::size_t>(std::ranges::lower_bound(track, time) - track.begin());
  if (after == track.size()) return after - 1;
  return after > 0 && time - track[after - 1] < track[after] - time ? after - 1 : after;
}

void extend(BeatTrack& track, double from, double to) {
  const double first = track[1] - track[0];
  const double last = track.back() - track[track.size() - 2];
  BeatTrack before;
  for (double time = track.front(); time > from;) before.push_back(time -= first);
  track.insert(track.begin(), before.rbegin(), before.rend());
  while (track.back() <= to) track.push_back(track.back() + last);
}

std::vector<BeatTrack> multiplesOf(const BeatTrack& track, const BeatLengths& lengths, double from,
                                   double to) {
  std::vector<BeatTrack> result;
  const double length = medianBeat(track);
  for (const int ticks : kLengthTicks) {
    if (!lengths.has(length * ticks / kTicksOfBeat)) continue;
    for (int shift = 0; shift < ticks; ++shift) {
      if (shift % 3 && shift % 4) continue;
      result.push_back(multiple(track, shift, ticks, from, to));
    }
  }
  return result;
}

bool areAlike(const BeatTrack& a, const BeatTrack& b) {
  constexpr double kTempo = 0.03, kPhase = 0.08;
  const double length = medianBeat(a);
  if (std::abs(std::log(length / medianBeat(b))) > kTempo) return false;
  constexpr std::size_t kSamples = 32;
  const std::size_t step = std::max<std::size_t>(1, a.size() / kSamples);
  double off = 0;
  std::size_t count = 0, next = 0;
  for (std::size_t i = 0; i < a.size(); i += step, ++count) {
    while (next + 1 < b.size() && std::abs(b[next + 1] - a[i]) <= std::abs(b[next] - a[i])) ++next;
    off += std::min(0.5, std::abs(b[next] - a[i]) / length);
  }
  return off / static_cast<double>(count) <= kPhase;
}

}  // namespace korvel::rhythm
