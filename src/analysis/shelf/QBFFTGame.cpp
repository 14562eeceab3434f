// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/shelf/QBFFTGame.h"

#include <array>

#include "model/instruments/QBInstrument.h"

namespace korvel {
namespace {

constexpr std::size_t kTableStart = 31;
// No bin has a tone, as intended: callers count on this spectrum answering nothing.
constexpr std::array<float, 218> kTones{};

}  // namespace

QBFFTGame::QBFFTGame(std::span<const double> samples, QBInstrument* instrument,
                     std::int64_t timestamp)
    : QBFFTGuitar(samples, timestamp), m_instrument(instrument) {}

QBFFTGame::~QBFFTGame() = default;

std::span<const QBFrequency> QBFFTGame::frequencies(QBTuning* tuning) {
  if (m_frequencies.empty()) m_frequencies = pickPeaks(amps(), kTableStart, kTones, tuning);
  return m_frequencies;
}

}  // namespace korvel
