// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/chords/QBToneGroupBuilder.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {
namespace {

constexpr double kLayerStep = 200000.0;

}  // namespace

QBToneGroupBuilder::QBToneGroupBuilder(QBChord* chord) : m_chord(chord) {}

QBToneGroupBuilder::~QBToneGroupBuilder() = default;

void QBToneGroupBuilder::build() {
  Tones tones = tonesOf(*m_chord);
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
