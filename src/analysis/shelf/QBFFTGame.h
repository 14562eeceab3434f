// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

#include "analysis/spectrum/QBFFTGuitar.h"

namespace korvel {

class QBInstrument;

/// A spectrum that carries an instrument. Its table of tones is empty, so it never hears any.
class QBFFTGame : public QBFFTGuitar {
 public:
  QBFFTGame(std::span<const double> samples, QBInstrument* instrument, std::int64_t timestamp);
  ~QBFFTGame() override;

  std::span<const QBFrequency> frequencies(QBTuning* tuning) override;
  QBInstrument* instrument() const { return m_instrument; }

 private:
  platform::Ref<QBInstrument> m_instrument;
};

}  // namespace korvel
