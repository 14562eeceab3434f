// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/HandGrip.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <tuple>

#include "arrange/hands/HandShapes.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kWidest = 4;
constexpr int kUnplayed = -1;

using Frets = std::array<int, kStrings>;

/// Pressed strings, those below a laid finger taken together.
int fingersFor(const Frets& frets, int lowest) {
  const auto first = std::ranges::find(frets, lowest);
  const auto alone = std::ranges::count_if(frets, [&](int fret) { return fret > lowest; });
  const bool lies = lowest > 0 && std::find(first, frets.end(), 0) == frets.end();
  const auto low = lowest > 0 ? std::ranges::count(frets, lowest) : 0;
  return static_cast<int>(alone + (lies ? std::min<std::ptrdiff_t>(low, 1) : low));
}

/// Notes on the strings of a set, lowest on lowest; nothing when one does not lie there.
TonePlaces placedOn(unsigned set, std::span<const int> notes, const OpenPitches& open,
                    std::span<const int> byPitch, int frets) {
  TonePlaces places;
  for (int rank = 0; rank < kStrings; ++rank) {
    if (!(set >> rank & 1U)) continue;
    const int string = byPitch[static_cast<std::size_t>(rank)];
    const int fret = addNotes(notes[places.size()], -open[static_cast<std::size_t>(string)]);
    if (fret < 0 || fret > frets) return {};
    places.push_back(TonePlace{string, fret});
  }
  return places;
}

auto costOf(const TonePlaces& places) {
  int sum = 0;
  for (const auto& place : places) sum += place->fret;
  return std::tuple(HandGrip(places).width(), sum);
}

}  // namespace

HandGrip::HandGrip(const TonePlaces& places) {
  Frets frets;
  frets.fill(kUnplayed);
  for (const auto& place : places) {
    if (!place) {
      m_isComplete = false;
      continue;
    }
    int& fret = frets.at(static_cast<std::size_t>(place->string));
    if (fret != kUnplayed) m_hasOneToneAString = false;
    fret = place->fret;
    if (fret <= 0) continue;
    m_lowest = m_lowest == 0 ? fret : std::min(m_lowest, fret);
    m_highest = std::max(m_highest, fret);
  }
  m_fingers = fingersFor(frets, m_lowest);
}

bool HandGrip::isPlayable() const {
  return m_isComplete && m_hasOneToneAString && width() <= kWidest && m_fingers <= kFingersOfHand;
}

TonePlaces HandGrip::narrowest(std::span<const int> notes, const OpenPitches& open, int frets) {
  std::array<int, kStrings> byPitch{};
  std::iota(byPitch.begin(), byPitch.end(), 0);
  std::ranges::stable_sort(byPitch, {}, [&](int s) { return open[static_cast<std::size_t>(s)]; });
  TonePlaces best;
  for (unsigned set = 0; set < 1U << kStrings; ++set) {
    if (static_cast<std::size_t>(std::popcount(set)) != notes.size()) continue;
    TonePlaces places = placedOn(set, notes, open, byPitch, frets);
    if (places.size() != notes.size()) continue;
    if (best.empty() || costOf(places) < costOf(best)) best = std::move(places);
  }
  best.resize(notes.size());
  return best;
}

}  // namespace korvel
