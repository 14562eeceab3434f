// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/EasyGrips.h"

#include <algorithm>
#include <limits>

#include "model/book/QBHarmony.h"

namespace korvel {
namespace {

/// Strings between two that fingers press beside each other at one fret.
constexpr int kFarApart = 2;

/// From the first to the last string that is pressed at the lowest fret.
std::ptrdiff_t spanAtLowest(const ChordShape& shape) {
  int lowest = EasyGrips::kAnyFret;
  for (const int fret : shape)
    if (fret > 0) lowest = std::min(lowest, fret);
  const auto first = std::ranges::find(shape, lowest);
  const auto last = std::find(shape.rbegin(), shape.rend(), lowest);
  return first == shape.end() ? 0 : last.base() - first - 1;
}

/// Needs a barre, or a hand that is more agile than a beginner's.
bool isHard(const ChordShape& shape) {
  return pressedIn(shape) > kFingersOfHand || spanAtLowest(shape) > kFarApart;
}

bool isWithin(const ChordShape& shape, int highestFret) {
  return std::ranges::max(shape) <= highestFret;
}

}  // namespace

EasyGrips::EasyGrips(const OpenStrings& strings, int highestFret)
    : m_strings(strings), m_highestFret(highestFret) {}

const std::optional<ChordShape>& EasyGrips::gripOf(const ChordName& name) {
  const auto [known, isNew] = m_known.try_emplace({name.baseTone, name.harmony->type()});
  if (isNew) known->second = easiest(name);
  return known->second;
}

bool EasyGrips::isOpen(const ChordName& name) {
  const auto& grip = gripOf(name);
  return grip && liesOpen(*grip) && pressedIn(*grip) <= kFingersOfOpen;
}

std::optional<ChordShape> EasyGrips::easiest(const ChordName& name) const {
  const auto shapes = shapesOf(name, m_strings, std::numeric_limits<std::size_t>::max());
  for (const int highest : {m_highestFret, kAnyFret})
    for (const bool hard : {false, true}) {
      const auto found = std::ranges::find_if(shapes, [&](const ChordShape& shape) {
        return isHard(shape) == hard && isWithin(shape, highest);
      });
      if (found != shapes.end()) return *found;
    }
  return std::nullopt;
}

}  // namespace korvel
