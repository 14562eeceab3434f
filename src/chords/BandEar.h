// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "chords/BandSound.h"
#include "chords/seeing/Detuning.h"
#include "chords/seeing/DrumFilter.h"
#include "chords/seeing/LogSpectrum.h"
#include "chords/seeing/QuarterRate.h"
#include "chords/seeing/StrokeFinder.h"
#include "chords/seeing/ToneSolver.h"
#include "chords/seeing/Whitening.h"

namespace korvel::chords {

/// Listens to a recording for what its chords are heard from. Some milliseconds of work for each
/// second of sound; keeps two thousand bytes of each, and six
/// thousand more for voices.
class BandEar {
 public:
  /// Whether single voices are to be heard in the sound, too.
  explicit BandEar(bool hearsVoices = false);
  /// The next samples, mono, platform::kSampleRate of them a second.
  void add(std::span<const float> samples);
  /// To be called once, when the sound has ended.
  BandSound take();

 private:
  void look();
  void see(const LogRow& row);
  void keepMiddle();
  void listenToWaiting();
  void listenTo(DrumFilter::Row& row);

  bool m_hearsVoices;
  QuarterRate m_quarter;
  std::vector<float> m_new;
  std::vector<float> m_samples;  ///< At kRate, from the first one that the next frame needs.
  std::size_t m_all = 0;         ///< Samples at kRate so far.
  LogSpectrum m_spectrum;
  DrumFilter m_drums;
  std::size_t m_seen = 0;  ///< Rows that the filter has.
  /// Rows wait until there are enough of them to tell how they are tuned.
  std::vector<DrumFilter::Row> m_waiting;
  Detuning m_detuning;
  Whitening m_whitening;
  ToneSolver m_solver;
  StrokeFinder m_strokes;
  BandSound m_sound;
};

}  // namespace korvel::chords
