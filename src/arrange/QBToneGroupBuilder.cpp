// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBToneGroupBuilder.h"

#include <algorithm>

#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBTone.h"

namespace korvel {
namespace {

constexpr double kLayerStep = 200000.0;

}  // namespace

QBToneGroupBuilder::QBToneGroupBuilder(QBChord* chord) : m_chord(chord) {}

QBToneGroupBuilder::~QBToneGroupBuilder() = default;

void QBToneGroupBuilder::build() {
  const QBHold* hold = m_chord->hold();
  if (!hold) return;
  auto tones = hold->tones().snapshot();
  std::ranges::stable_sort(tones, {}, [](const auto& tone) { return tone->amp(); });
  int group = 1;
  double reference = 0.0;
  for (const auto& tone : tones) {
    tone->setGroup(group);
    if (tone->amp() - reference <= kLayerStep) continue;
    reference = tone->amp();
    ++group;
  }
}

}  // namespace korvel
