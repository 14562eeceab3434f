// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBBlock.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSample.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBBlock::describe() {
  return platform::EntityBuilder<QBBlock>("QBBlock")
      .attribute<&QBBlock::m_position>("position")
      .attribute<&QBBlock::m_data>("data", platform::Fetch::onDemand)
      .toOne<&QBBlock::m_chord>("chord", "QBChord", "block")
      .toMany<&QBBlock::m_samples>("samples", "QBSample", "block")
      .build();
}

QBChord* QBBlock::chord() const { return target(m_chord); }

void QBBlock::setChord(QBChord* value) { relate(m_chord, value); }

platform::Members<QBSample> QBBlock::samples() const { return members(m_samples); }

}  // namespace korvel
