// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandGrips.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>

#include "fingering/grips/ChordShapes.h"
#include "fingering/grips/Grip.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using fingering::Grip;
using rhythm::ChordSpan;

constexpr int kReach = 3;  ///< Frets that a hand covers above the lowest one.
constexpr int kHighestPosition = 10;
constexpr int kMostFingers = 4;
constexpr std::size_t kMostGrips = 12;
constexpr int kFewestTones = 3;

// In the same measure as the familiarity of a shape, the logarithm of a factor.
constexpr double kPerTone = 1;
constexpr double kPerFret = 0.22;
constexpr double kPerFinger = 0.25;
constexpr double kPerFretOfSpan = 0.4;
constexpr double kOtherBass = 4;
constexpr double kMissingFifth = 0.8;
constexpr double kMissingTone = 6;
constexpr double kMutedInside = 1.5;
constexpr double kPerFretOfMove = 0.15;
constexpr double kOutOfPosition = 1.5;

}  // namespace

/// What a grip of a chord is to have.
struct BandGrips::Tones {
  explicit Tones(const ChordSpan& chord)
      : classes(chord.pitchClasses | (chord.bass < 0 ? 0U : 1U << chord.bass)),
        bass(chord.bass < 0 ? chord.root : chord.bass),
        fifth((chord.root + 7) % kNotesPerOctave) {}

  bool has(int pitch) const { return (classes >> pitchClass(pitch) & 1U) != 0; }

  unsigned classes;
  int bass;
  int fifth;
};

BandGrips::BandGrips(const OpenPitches& open, const fingering::FingeringOptions& options)
    : m_open(open), m_options(options) {
  for (int& pitch : m_open) pitch += options.capo;
}

/// The best sequence: what each grip is worth, less the way of the hand.
std::vector<BandGrips::Frets> BandGrips::of(std::span<const ChordSpan> chords) {
  Frets none;
  none.fill(kLeftAlone);
  std::vector<Frets> result(chords.size(), none);
  std::vector<std::size_t> sounding;
  std::vector<std::vector<std::size_t>> from;
  std::vector<double> total{0};
  const std::vector<Held>* before = nullptr;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const std::vector<Held>& grips = gripsOf(chords[i]);
    if (grips.empty()) continue;
    std::vector<double> sums(grips.size(), -std::numeric_limits<double>::infinity());
    std::vector<std::size_t> ways(grips.size());
    for (std::size_t b = 0; b < grips.size(); ++b) {
      for (std::size_t a = 0; a < total.size(); ++a) {
        const bool moves = before && (*before)[a].lowest > 0 && grips[b].lowest > 0;
        const int way = moves ? std::abs((*before)[a].lowest - grips[b].lowest) : 0;
        const double sum = total[a] + grips[b].worth - kPerFretOfMove * way;
        if (sum <= sums[b]) continue;
        sums[b] = sum;
        ways[b] = a;
      }
    }
    sounding.push_back(i);
    from.push_back(std::move(ways));
    total = std::move(sums);
    before = &grips;
  }
  auto at = static_cast<std::size_t>(std::ranges::max_element(total) - total.begin());
  for (std::size_t k = sounding.size(); k-- > 0;) {
    Frets& frets = result[sounding[k]];
    frets = gripsOf(chords[sounding[k]])[at].frets;
    for (int& fret : frets)
      if (fret != kLeftAlone) fret += m_options.capo;
    at = from[k][at];
  }
  return result;
}

std::vector<BandGrips::Frets> BandGrips::waysToHold(const ChordSpan& chord) {
  std::vector<Frets> ways;
  for (const Held& held : gripsOf(chord)) ways.push_back(held.frets);
  return ways;
}

const std::vector<BandGrips::Held>& BandGrips::gripsOf(const ChordSpan& chord) {
  const auto [known, isNew] =
      m_known.try_emplace({static_cast<unsigned>(chord.root + 1), chord.pitchClasses,
                           static_cast<unsigned>(chord.bass + 1)});
  if (isNew && chord.root >= 0) known->second = found(chord);
  return known->second;
}

std::vector<BandGrips::Held> BandGrips::found(const ChordSpan& chord) const {
  const Tones tones(chord);
  std::vector<Held> grips;
  Frets frets{};
  for (int position = 1; position <= kHighestPosition; ++position)
    extend(tones, position, 0, frets, grips);
  const auto better = [](const Held& a, const Held& b) {
    return a.worth != b.worth ? a.worth > b.worth : a.frets < b.frets;
  };
  std::ranges::sort(grips, better);
  const auto same = [](const Held& a, const Held& b) { return a.frets == b.frets; };
  grips.erase(std::unique(grips.begin(), grips.end(), same), grips.end());
  if (grips.size() > kMostGrips) grips.resize(kMostGrips);
  return grips;
}

/// Each string alone, open, or pressed within the hand's reach where that is a tone of the chord.
void BandGrips::extend(const Tones& tones, int position, std::size_t string, Frets& frets,
                       std::vector<Held>& grips) const {
  if (string == frets.size()) return add(tones, frets, grips);
  const auto tryFret = [&](int fret) {
    if (fret + m_options.capo > m_options.frets) return;
    if (fret != kLeftAlone && !tones.has(m_open[string] + fret)) return;
    frets[string] = fret;
    extend(tones, position, string + 1, frets, grips);
  };
  tryFret(kLeftAlone);
  tryFret(0);
  for (int fret = position; fret <= position + kReach; ++fret) tryFret(fret);
}

void BandGrips::add(const Tones& tones, const Frets& frets, std::vector<Held>& grips) const {
  Grip grip = fingering::emptyGrip();
  unsigned missing = tones.classes;
  int first = kStrings, last = -1, lowestPitch = std::numeric_limits<int>::max();
  int pressed = 0, atLowest = 0, highest = 0, lowest = std::numeric_limits<int>::max();
  for (int s = 0; s < kStrings; ++s) {
    const auto string = static_cast<std::size_t>(s);
    const int fret = frets[string];
    if (fret == kLeftAlone) continue;
    grip.fret[string] = static_cast<std::int8_t>(fret);
    first = std::min(first, s);
    last = s;
    ++grip.played;
    lowestPitch = std::min(lowestPitch, m_open[string] + fret);
    missing &= ~(1U << pitchClass(m_open[string] + fret));
    if (fret == 0) continue;
    ++pressed;
    if (fret < lowest) atLowest = 0;
    highest = std::max(highest, fret);
    lowest = std::min(lowest, fret);
    if (fret == lowest) ++atLowest;
  }
  const int fingers = atLowest > 1 ? pressed - atLowest + 1 : pressed;
  if (grip.played < std::min(kFewestTones, std::popcount(tones.classes)) || fingers > kMostFingers)
    return;
  double worth = fingering::familiarity(grip) + kPerTone * grip.played - kPerFinger * fingers;
  worth -= kMutedInside * (last - first + 1 - grip.played);
  if (pitchClass(lowestPitch) != tones.bass) worth -= kOtherBass;
  if (pressed > 0) worth -= kPerFret * lowest + kPerFretOfSpan * (highest - lowest);
  if ((missing >> tones.fifth & 1U) != 0) worth += kMissingTone - kMissingFifth;
  worth -= kMissingTone * std::popcount(missing);
  const fingering::Position& wished = m_options.position;
  if (wished.kind == fingering::Position::Kind::around && pressed > 0)
    worth -= kOutOfPosition * std::abs(lowest + m_options.capo - wished.fret);
  grips.push_back({frets, pressed > 0 ? lowest : 0, worth});
}

}  // namespace korvel
