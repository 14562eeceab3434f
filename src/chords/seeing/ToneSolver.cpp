// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/ToneSolver.h"

#include <algorithm>
#include <cmath>

namespace korvel::chords {
namespace {

constexpr int kUpdates = 60;
constexpr int kPartials = 20;
/// Of each partial, in comparison with the one below.
constexpr double kNextPartial = 0.8;
/// Half a semitone on each side of a partial.
constexpr double kHalfWidth = 0.5 * kBinsOfSemitone;
constexpr float kLeast = 1e-9F;

LogRow spectrumOf(int tone) {
  LogRow row{};
  double height = 1, squares = 0;
  for (int h = 1; h <= kPartials; ++h, height *= kNextPartial) {
    const double middle = (tone - kLowestOfScale + 12 * std::log2(h)) * kBinsOfSemitone;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
      const double far = std::abs(static_cast<double>(bin) - middle);
      if (far < kHalfWidth) row[bin] += static_cast<float>(height * (1 - far / kHalfWidth));
    }
  }
  for (const float value : row) squares += static_cast<double>(value) * value;
  for (float& value : row) value /= static_cast<float>(std::sqrt(squares));
  return row;
}

}  // namespace

ToneSolver::ToneSolver() : m_products(kTones) {
  std::vector<LogRow> rows;
  for (std::size_t i = 0; i < kTones; ++i) {
    rows.push_back(spectrumOf(kLowestTone + static_cast<int>(i)));
    const LogRow& row = rows.back();
    const auto from = std::ranges::find_if(row, [](float value) { return value > 0; });
    m_spectra.push_back({static_cast<std::size_t>(from - row.begin()), {from, row.end()}});
  }
  for (std::size_t a = 0; a < kTones; ++a)
    for (std::size_t b = 0; b < kTones; ++b)
      for (std::size_t bin = 0; bin < kBins; ++bin) m_products[a][b] += rows[a][bin] * rows[b][bin];
}

void ToneSolver::solve(const LogRow& row, Tones& tones) const {
  Tones wanted{};
  for (std::size_t i = 0; i < kTones; ++i) {
    const Spectrum& spectrum = m_spectra[i];
    for (std::size_t k = 0; k < spectrum.values.size(); ++k)
      wanted[i] += spectrum.values[k] * row[spectrum.from + k];
  }
  tones = wanted;
  for (int update = 0; update < kUpdates; ++update) {
    Tones had{};
    for (std::size_t a = 0; a < kTones; ++a) {
      const float strength = tones[a];
      if (strength < kLeast) continue;
      for (std::size_t b = 0; b < kTones; ++b) had[b] += strength * m_products[a][b];
    }
    for (std::size_t i = 0; i < kTones; ++i) tones[i] *= wanted[i] / (had[i] + kLeast);
  }
}

}  // namespace korvel::chords
