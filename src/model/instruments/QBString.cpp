// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBString.h"

#include <algorithm>
#include <iterator>

#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBTuning.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr int kFrets = 13;
constexpr int kNoTone = -1000000;

}  // namespace

platform::EntityDescription QBString::describe() {
  return platform::EntityBuilder<QBString>("QBString")
      .attribute<&QBString::m_name>("name")
      .attribute<&QBString::m_order>("order")
      .attribute<&QBString::m_baseTone>("baseTone")
      .attribute<&QBString::m_frequency>("frequency")
      .toOne<&QBString::m_tuning>("tuning", "QBTuning", "strings")
      .toOne<&QBString::m_righthandpattern>("righthandpattern", "QBRightHandPattern", "strings")
      .toOne<&QBString::m_lefthandpattern>("lefthandpattern", "QBLeftHandPattern", "strings")
      .build();
}

QBTuning* QBString::tuning() const { return target(m_tuning); }

void QBString::setTuning(QBTuning* value) { relate(m_tuning, value); }

QBRightHandPattern* QBString::righthandpattern() const { return target(m_righthandpattern); }

void QBString::setRighthandpattern(QBRightHandPattern* value) { relate(m_righthandpattern, value); }

QBLeftHandPattern* QBString::lefthandpattern() const { return target(m_lefthandpattern); }

void QBString::setLefthandpattern(QBLeftHandPattern* value) { relate(m_lefthandpattern, value); }

const std::vector<float>& QBString::frequencyAll() {
  if (!frequencies.empty()) return frequencies;
  // Repeated multiplication, not a power: detection bands rest on its accumulated error.
  auto f = static_cast<float>(frequency());
  for (int fret = 0; fret < kFrets; ++fret, f *= kSemitone) frequencies.push_back(f);
  std::ranges::sort(frequencies);
  return frequencies;
}

float QBString::computeFrequency(int fret) {
  return frequencyAll().at(static_cast<std::size_t>(fret));
}

int QBString::largeToneOfString() const {
  // Only the lowest string follows the tuning; the others keep their standard note on purpose.
  static constexpr int kLargeTones[] = {0, 9, 14, 19, 23, 28};
  const int position = order();
  if (position == 0) return baseTone();
  if (position < 0 || position >= static_cast<int>(std::size(kLargeTones))) return kNoTone;
  return kLargeTones[position];
}

void QBString::forgetCaches() {
  frequencies.clear();
  if (QBTuning* owner = tuning()) owner->forgetCaches();
}

}  // namespace korvel
