// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/Scale.h"
#include "precise/judging/Resonances.h"
#include "precise/seeing/FrameTable.h"
#include "precise/seeing/KeptValues.h"

namespace korvel::precise {

/// Pre-emphasis and compression of a spectrum in place: a magnitude equal to `ref` at 440 Hz
/// becomes 1. Higher partials, which are fainter, are raised.
void emphasise(std::span<float, kBins> magnitudes, double ref);

/// Makes the spectra of a recording comparable to those of any other, whatever its level and its
/// background: measure them, then apply to every frame.
class Levels {
 public:
  /// What earlier windows of a long recording had.
  struct Earlier {
    std::vector<BinRow> rows{};  ///< Spectra of some of their frames.
    KeptValues loudest{};
  };

  /// Finds the level of the background in each bin, what a tenth of the frames stay below, smoothed
  /// over neighbouring bins; what resonates; and the reference level: the loudest partials of all
  /// frames but the loudest fiftieth. power: the mean square of what was recorded; when next to
  /// nothing of it is seen, as of a constant, the spectra count as silence.
  platform::Slices measure(const FrameTable& spectra, double power) {
    return measure(spectra, power, m_none);
  }
  /// The same beside the windows before, to which this one is added; they have to live meanwhile.
  platform::Slices measure(const FrameTable& spectra, double power, Earlier& earlier);

  /// Subtracts the background of a frame's magnitudes, takes out what resonates, emphasises and
  /// compresses them.
  void apply(std::span<float, kBins> magnitudes) const;

  /// What magnitudes are multiplied by, as they resonate.
  const BinRow& gains() const { return m_resonances.gains(); }
  /// 0 for silence, which has nothing to be compared with.
  double ref() const { return m_ref; }

 private:
  platform::Slices measureFloor(const FrameTable& spectra, const std::vector<BinRow>& earlier);
  platform::Slices measureLoudest(const FrameTable& spectra);
  platform::Slices findResonances(const FrameTable& spectra, const std::vector<BinRow>& earlier);
  void lookForResonances(std::span<const float> magnitudes);

  Earlier m_none;
  BinRow m_floor{};
  Resonances m_resonances;
  double m_ref = 0;
  std::vector<float> m_loudest;  ///< Of each frame, while it is measured.
};

}  // namespace korvel::precise
