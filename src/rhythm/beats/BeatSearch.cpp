// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/BeatSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace korvel::rhythm {
namespace {

constexpr double kFrame = 0.01;  // seconds
/// How exactly notes are played, in frames, and the share of those that stand anywhere.
constexpr double kWidthInFrames = 3;
constexpr double kAnywhereInSearch = 0.10;
/// How much an accent decides on the place of a note.
constexpr double kAccentInSearch = 0.55;
/// Accents are told apart in steps of a half.
constexpr std::size_t kAccents = 5;
constexpr std::size_t kAccentOfTap = kAccents;
constexpr float kWeightOfTap = 4;
constexpr float kNever = -1e30F;
constexpr std::uint8_t kStart = 255;
/// The work between two stops.
constexpr int kFramesOfSlice = 6000;

int frameAt(double time, double origin) {
  return static_cast<int>(std::lround((time - origin) / kFrame));
}

}  // namespace

BeatSearch::BeatSearch(std::span<const Onset> onsets, const BeatSearchSettings& settings,
                       std::span<const double> taps)
    : m_settings(settings), m_onsets(onsets), m_gains((kAccents + 1) * kLongest), m_open(kLongest) {
  const auto frames = [](double seconds) {
    return std::clamp(static_cast<int>(std::lround(seconds / kFrame)), kShortest, kLongest);
  };
  m_fewest = static_cast<std::size_t>(frames(settings.shortest) - kShortest);
  m_most = std::max(m_fewest, static_cast<std::size_t>(frames(settings.longest) - kShortest));
  listStruck(taps);
  fillGains();
  priceChanges();
}

void BeatSearch::listStruck(std::span<const double> taps) {
  m_origin = m_onsets.front().time - kLongest * kFrame;
  for (const Onset& onset : m_onsets) {
    const auto accent = static_cast<std::size_t>(std::lround((onset.accent + 1) * 2));
    m_struck.push_back({frameAt(onset.time, m_origin), static_cast<float>(onset.weight), accent});
  }
  m_first = m_struck.front().frame;
  m_last = m_struck.back().frame;
  for (const double tap : taps) {
    const int frame = frameAt(tap, m_origin);
    if (frame < m_first - kLongest || frame > m_last) continue;
    m_struck.push_back({frame, kWeightOfTap, kAccentOfTap});
  }
  std::ranges::stable_sort(m_struck, {}, &Struck::frame);
}

void BeatSearch::fillGains() {
  const PlaceShares& usual = usualShares(m_settings.division);
  const double scale = 1 / (kWidthInFrames * std::sqrt(2 * std::numbers::pi));
  for (std::size_t accent = 0; accent <= kAccents; ++accent) {
    PlaceShares shares{};
    double sum = 0;
    for (std::size_t k = 0; k < kPlaces; ++k) {
      const double level = 0.5 * static_cast<double>(accent) - 1;
      shares[k] = accent == kAccentOfTap
                      ? (k == 0 ? 1 : 0)
                      : usual[k] * std::exp(kAccentInSearch * level * kAccentOfPlace[k]);
      sum += shares[k];
    }
    for (int distance = 0; distance < kLongest; ++distance) {
      ByLength& gains = m_gains[accent * kLongest + static_cast<std::size_t>(distance)];
      for (std::size_t i = 0; i < kLengths; ++i) {
        const int length = kShortest + static_cast<int>(i);
        if (distance >= length) continue;
        double density = 0;
        for (std::size_t k = 0; k <= kPlaces; ++k) {
          const int tick = k < kPlaces ? kPlaceTicks[k] : kTicksOfBeat;
          const double far = distance - static_cast<double>(tick * length) / kTicksOfBeat;
          if (std::abs(far) > 5 * kWidthInFrames) continue;
          density += shares[k % kPlaces] / sum *
                     std::exp(-far * far / (2 * kWidthInFrames * kWidthInFrames));
        }
        gains[i] = static_cast<float>(
            std::log((1 - kAnywhereInSearch) * density * scale * length + kAnywhereInSearch));
      }
    }
  }
}

void BeatSearch::priceChanges() {
  for (std::size_t i = 0; i < kLengths; ++i) {
    const double length = static_cast<double>(i + kShortest);
    m_heights[i] = static_cast<float>(m_settings.stiffness * std::log(length));
  }
  for (std::size_t a = m_fewest; a <= m_most; ++a) {
    double sum = 0;
    for (std::size_t b = m_fewest; b <= m_most; ++b) {
      sum += std::exp(-std::abs(m_heights[a] - m_heights[b]));
    }
    m_toAny[a] = static_cast<float>(std::log(sum));
  }
}

platform::Slices BeatSearch::run() {
  m_from.resize(static_cast<std::size_t>(m_last) + 1);
  m_bestEnd = kNever;
  for (ByLength& scores : m_open) scores.fill(kNever);
  for (int frame = 0; frame <= m_last; ++frame) {
    advance(frame);
    if (frame % kFramesOfSlice == kFramesOfSlice - 1) co_yield double{1} * frame / m_last;
  }
  traceBack();
  m_from = {};
}

void BeatSearch::advance(int frame) {
  ByLength best = endedAt(frame);
  auto& from = m_from[static_cast<std::size_t>(frame)];
  spread(best, from);
  startAt(frame, best, from);
  add(frame, best);
  keepEnd(frame, best);
  open(frame) = best;
}

/// The best score of a beat of each length that ends here.
BeatSearch::ByLength BeatSearch::endedAt(int frame) const {
  ByLength ended;
  ended.fill(kNever);
  for (std::size_t i = m_fewest; i <= m_most; ++i) {
    const int start = frame - kShortest - static_cast<int>(i);
    if (start < 0) break;
    ended[i] = m_open[static_cast<std::size_t>(start % kLongest)][i] - m_toAny[i];
  }
  return ended;
}

/// The price of a change is a distance of heights, so that two sweeps over the lengths find the
/// best one before each.
void BeatSearch::spread(ByLength& best, Indexes& from) const {
  ByLength rising{};
  Indexes below{};
  float most = kNever;
  std::uint8_t at = 0;
  for (std::size_t i = m_fewest; i <= m_most; ++i) {
    const float score = best[i] + m_heights[i];
    at = score > most ? static_cast<std::uint8_t>(i) : at;
    most = std::max(score, most);
    rising[i] = most - m_heights[i];
    below[i] = at;
  }
  most = kNever;
  for (std::size_t i = m_most + 1; i-- > m_fewest;) {
    const float score = best[i] - m_heights[i];
    at = score > most ? static_cast<std::uint8_t>(i) : at;
    most = std::max(score, most);
    const float falling = most + m_heights[i];
    from[i] = falling > rising[i] ? at : below[i];
    best[i] = std::max(falling, rising[i]);
  }
}

/// The first beat is the one that has the first onset.
void BeatSearch::startAt(int frame, ByLength& best, Indexes& from) const {
  if (frame > m_first) return;
  for (std::size_t i = m_fewest; i <= m_most; ++i) {
    if (frame + kShortest + static_cast<int>(i) <= m_first || best[i] >= 0) continue;
    best[i] = 0;
    from[i] = kStart;
  }
}

/// Adds what the onsets within a beat from here on say.
void BeatSearch::add(int frame, ByLength& best) {
  while (m_next < m_struck.size() && m_struck[m_next].frame < frame) ++m_next;
  const int last = frame + kShortest + static_cast<int>(m_most);
  for (std::size_t n = m_next; n < m_struck.size() && m_struck[n].frame < last; ++n) {
    const Struck& struck = m_struck[n];
    const ByLength& gains =
        m_gains[struck.accent * kLongest + static_cast<std::size_t>(struck.frame - frame)];
    for (std::size_t i = m_fewest; i <= m_most; ++i) best[i] += struck.weight * gains[i];
  }
}

/// The last beat is the one that has the last onset.
void BeatSearch::keepEnd(int frame, const ByLength& best) {
  for (std::size_t i = m_fewest; i <= m_most; ++i) {
    if (frame + kShortest + static_cast<int>(i) <= m_last || best[i] <= m_bestEnd) continue;
    m_bestEnd = best[i];
    m_endFrame = frame;
    m_endLength = i;
  }
}

void BeatSearch::traceBack() {
  m_track.clear();
  int frame = m_endFrame;
  std::size_t length = m_endLength;
  const auto time = [&](int at) { return m_origin + at * kFrame; };
  m_track.push_back(time(frame + kShortest + static_cast<int>(length)));
  while (true) {
    m_track.push_back(time(frame));
    const std::uint8_t before = m_from[static_cast<std::size_t>(frame)][length];
    if (before == kStart) break;
    length = before;
    frame -= kShortest + static_cast<int>(length);
  }
  std::ranges::reverse(m_track);
}

}  // namespace korvel::rhythm
