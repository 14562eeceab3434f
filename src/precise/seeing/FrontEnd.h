// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "precise/Scale.h"
#include "precise/seeing/Recording.h"
#include "precise/seeing/Spectrum.h"
#include "precise/seeing/Triangles.h"
#include "precise/striking/Steadiness.h"

namespace korvel::precise {

/// Frames of a recording on a logarithmic scale of frequency. Low frequencies are seen through a
/// long window, which tells neighbouring semitones apart, high ones through a shorter one, which
/// tells neighbouring notes apart; onsets are sought in a third, shorter still.
class FrontEnd {
 public:
  /// The scale is laid to the recording's tuning, in cents above 440 Hz.
  explicit FrontEnd(double tuningOffset);

  /// Looks at a frame, which is centred at sample frame * kHop, and at the one that follows.
  void look(const Recording& recording, Frame frame);
  /// Linear magnitudes in one of the two frames, 0 or 1.
  const BinRow& spectrum(std::size_t which) const { return m_views[which].bins; }
  /// Those of the short window, one bin a semitone.
  const OnsetRow& onsetSpectrum(std::size_t which) const { return m_views[which].onsets; }
  /// How little the bins of onsets go on as they did, in the middle window; see Steadiness. Expects
  /// to have looked at all frames before.
  const OnsetRow& turns(std::size_t which) const { return m_views[which].turns; }

  /// Samples at kRate before a frame's centre that it still needs.
  static constexpr std::ptrdiff_t kReach = 2048;

 private:
  struct View {
    BinRow bins{};
    OnsetRow onsets{};
    OnsetRow turns{};
  };

  FrontEnd(std::span<const double> centres, std::span<const double> onsetCentres);
  void mix(std::span<const float> longLines, std::span<const float> middleLines, BinRow& bins);

  /// The lowest bins see only the long window, the highest only the middle one.
  Triangles m_longBins;
  Triangles m_middleBins;
  Triangles m_shortBins;
  Steadiness m_steadiness;
  Spectrum m_longSpectrum;
  Spectrum m_middleSpectrum;
  Spectrum m_shortSpectrum;
  BinRow m_longMeans{};
  BinRow m_middleMeans{};
  /// Share of the middle window in each bin.
  BinRow m_middleShare{};
  std::array<View, 2> m_views;
};

}  // namespace korvel::precise
