// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageGrips.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "fingering/FingeringOptions.h"
#include "fingering/grips/ChordShapes.h"
#include "fingering/grips/Grip.h"
#include "music/Pitch.h"
#include "rhythm/Reading.h"

namespace korvel {
namespace {

constexpr int kFretsOfDiagram = 4;
constexpr int kHighestOfFirst = 4;

int lowestPressed(const ChordShape& shape) {
  int lowest = 0;
  for (const int fret : shape)
    if (fret > 0) lowest = lowest == 0 ? fret : std::min(lowest, fret);
  return lowest;
}

/// A shape that is taught takes all four fingers and is learnt early all the same.
bool isTaught(const ChordShape& shape) {
  fingering::Grip grip = fingering::emptyGrip();
  for (std::size_t s = 0; s < shape.size(); ++s) {
    if (shape[s] == kNotPlayed) continue;
    grip.fret[s] = static_cast<std::int8_t>(shape[s]);
    ++grip.played;
  }
  return fingering::familiarity(grip) > 0;
}

bool isOpenShape(const ChordShape& shape) {
  if (!liesOpen(shape)) return false;
  const int pressed = pressedIn(shape);
  return pressed <= kFingersOfOpen || (pressed <= kFingersOfHand && isTaught(shape));
}

/// Strings between the outer ones at the lowest fret, if nothing open or left out lies between.
std::optional<std::array<int, 2>> barreOf(const ChordShape& shape) {
  const int lowest = lowestPressed(shape);
  if (lowest == 0 || pressedIn(shape) <= kFingersOfHand) return std::nullopt;
  const auto first = std::ranges::find(shape, lowest);
  const auto last = std::find(shape.rbegin(), shape.rend(), lowest).base() - 1;
  if (first == last || std::find_if(first, last, [](int fret) { return fret <= 0; }) != last)
    return std::nullopt;
  return std::array{static_cast<int>(first - shape.begin()),
                    static_cast<int>(last - shape.begin())};
}

}  // namespace

PageGrips::PageGrips(const OpenPitches& open, int capo)
    : m_open(open), m_grips(open, [capo] {
        fingering::FingeringOptions options;
        options.capo = capo;
        return options;
      }()) {
  for (int& pitch : m_open) pitch += capo;
}

std::vector<ChordShape> PageGrips::waysToHold(const PageSource::Chord& sounding) {
  if (sounding.root < 0 || sounding.pitchClasses == 0) return {};
  rhythm::ChordSpan span;
  span.root = sounding.root;
  span.pitchClasses = sounding.pitchClasses | 1U << sounding.root;
  span.bass = sounding.bass;
  std::vector<ChordShape> ways = m_grips.waysToHold(span);
  // Pages show the shapes of the first frets where there are some.
  std::stable_partition(ways.begin(), ways.end(), [](const ChordShape& way) {
    return lowestPressed(way) <= kHighestOfFirst;
  });
  return ways;
}

bool PageGrips::hold(const PageSource::Chord& sounding, const std::optional<ChordShape>& played,
                     PageGrip& grip) {
  std::vector<ChordShape> ways = waysToHold(sounding);
  if (!played && ways.empty()) return false;
  if (sounding.bass >= 0)
    std::stable_partition(ways.begin(), ways.end(),
                          [&](const ChordShape& way) { return hasBass(way, sounding.bass); });
  grip.isAsPlayed = played.has_value();
  grip.frets = played ? *played : ways.front();
  std::erase(ways, grip.frets);
  if (ways.size() > kOthers) ways.resize(kOthers);
  grip.others = std::move(ways);
  const int highest = std::ranges::max(grip.frets);
  grip.baseFret = highest > kFretsOfDiagram ? lowestPressed(grip.frets) : 1;
  tellFingers(grip);
  return true;
}

bool PageGrips::hasBass(const ChordShape& shape, int bass) const {
  std::optional<int> lowest;
  for (std::size_t string = 0; string < shape.size(); ++string)
    if (shape[string] != kNotPlayed)
      lowest = std::min(lowest.value_or(std::numeric_limits<int>::max()),
                        m_open[string] + shape[string]);
  return lowest && pitchClass(*lowest) == bass;
}

bool PageGrips::isOpenChord(const PageSource::Chord& sounding) {
  const std::vector<ChordShape> ways = waysToHold(sounding);
  // The best ones only: the others have open strings that nobody would choose.
  constexpr std::size_t kBest = 3;
  return std::any_of(ways.begin(),
                     ways.begin() + static_cast<std::ptrdiff_t>(std::min(ways.size(), kBest)),
                     isOpenShape);
}

void tellFingers(PageGrip& grip) {
  grip.barre = barreOf(grip.frets);
  grip.fingers.fill(0);
  const int lowest = lowestPressed(grip.frets);
  int finger = 0;
  const int highest = std::ranges::max(grip.frets);
  if (!grip.barre && pressedIn(grip.frets) > kFingersOfHand) return;
  for (int fret = lowest; fret > 0 && fret <= highest; ++fret)
    for (std::size_t string = 0; string < grip.frets.size(); ++string) {
      if (grip.frets[string] != fret) continue;
      if (!grip.barre || fret > lowest || finger == 0) ++finger;
      grip.fingers[string] = finger;
    }
  // More than a hand has, as where an open string forbids the barre.
  if (finger > kFingersOfHand) grip.fingers.fill(0);
}

void mirror(PageGrip& grip) {
  std::ranges::reverse(grip.frets);
  std::ranges::reverse(grip.fingers);
  for (ChordShape& other : grip.others) std::ranges::reverse(other);
  if (grip.barre) grip.barre = {kStrings - 1 - (*grip.barre)[1], kStrings - 1 - (*grip.barre)[0]};
}

}  // namespace korvel
