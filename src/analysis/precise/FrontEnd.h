// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "analysis/precise/Recording.h"
#include "analysis/precise/Scale.h"
#include "analysis/precise/Spectrum.h"
#include "analysis/precise/Triangles.h"

namespace korvel::precise {

/// Frames of a recording on a logarithmic scale of frequency. Low frequencies are seen through a
/// long window, which tells neighbouring semitones apart, high ones through a shorter one, which
/// tells neighbouring notes apart; onsets are sought in a third, shorter still.
class FrontEnd {
 public:
  /// The scale is laid to the recording's tuning, in cents above 440 Hz.
  explicit FrontEnd(double tuningOffset);

  /// Linear magnitudes of kBins bins in the frame centred at sample frame * kHop.
  void spectrum(const Recording& recording, Frame frame, std::span<float, kBins> bins);
  /// Those of kOnsetBins bins, one a semitone, of the short window.
  void onsetSpectrum(const Recording& recording, Frame frame, std::span<float, kOnsetBins> bins);

  /// Samples at kRate before a frame's centre that it still needs.
  static constexpr std::ptrdiff_t kReach = 2048;

 private:
  FrontEnd(std::span<const double> centres, std::span<const double> onsetCentres);

  Spectrum m_longSpectrum;
  Spectrum m_middleSpectrum;
  Spectrum m_shortSpectrum;
  /// The lowest bins see only the long window, the highest only the middle one.
  Triangles m_longBins;
  Triangles m_middleBins;
  Triangles m_shortBins;
  std::array<float, kBins> m_longMeans{};
  std::array<float, kBins> m_middleMeans{};
  /// Share of the middle window in each bin.
  std::array<float, kBins> m_middleShare{};
};

}  // namespace korvel::precise
