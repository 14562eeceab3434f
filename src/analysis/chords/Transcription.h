// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "analysis/FoundTuning.h"
#include "analysis/HearingSettings.h"
#include "chords/BandEar.h"
#include "chords/BandSound.h"
#include "fingering/Fingering.h"
#include "fingering/TuningFit.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"
#include "precise/Findings.h"
#include "precise/WindowedEngine.h"
#include "rhythm/RhythmReader.h"

namespace korvel {

class QBSampleSource;

/// A recording on its way to notes with strings and frets: reads the source, detects the notes,
/// fingers them and reads their rhythm, a slice at each step. To cancel, destroy it. Not to be
/// moved between steps.
class Transcription {
 public:
  /// The source is to deliver samples (`readSamples`) by the time of the first step.
  Transcription(std::shared_ptr<QBSampleSource> source, const OpenPitches& open,
                const HearingSettings& settings);

  /// A few hundredths of a second of work; false when all is done.
  bool step();
  /// How much of the work is done, 0..1. Never less than before.
  double progress() const;
  /// Length of the recording at kInputRate, as far as it was read.
  std::size_t samples() const { return m_samples; }
  /// Complete once `step` has answered false. What is doubtful has no strings.
  const precise::Findings& result() const { return m_result; }
  /// Likewise; to be taken once.
  rhythm::Rhythm takeRhythm() { return std::move(m_rhythm); }
  /// Likewise: whether a band plays, and what its chords are heard from, which nobody listened to
  /// unless the settings ask for it.
  bool isBand() const { return m_isBand; }
  /// Likewise: the strings that the notes are on, and which others of the settings they are clearly
  /// played on; none for a band.
  const OpenPitches& open() const { return m_open; }
  const std::optional<FoundTuning>& otherTuning() const { return m_otherTuning; }
  const chords::BandSound& sound() const { return m_sound; }

 private:
  enum class Phase { reading, hearing, fingering, rhythm, done };

  void work();
  void read();
  void hear();
  void decide();
  void findTuning();
  void take(const fingering::Strings& found);
  void finger();
  void readRhythm();
  bool mayReadHalfAsFast() const;
  bool readsHalfAsFast();
  double progressOfRhythm() const;

  std::shared_ptr<QBSampleSource> m_source;
  precise::WindowedEngine m_engine;
  OpenPitches m_open;
  HearingSettings m_settings;
  std::optional<FoundTuning> m_otherTuning;
  fingering::Fingering m_fingering;
  precise::Findings m_result;
  Players m_players;
  std::optional<chords::BandEar> m_ear;  ///< While it listens.
  chords::BandSound m_sound;
  bool m_isBand = false;
  std::size_t m_samples = 0;
  Phase m_phase = Phase::reading;
  double m_heard = 0;  ///< Share of the source that the windows before had.
  bool m_isRead = false;
  platform::Slices m_placing;
  rhythm::Wishes m_wishes;
  std::optional<rhythm::RhythmReader> m_reader;  ///< While it reads.
  bool m_isReadAgain = false;
  rhythm::Rhythm m_rhythm;
};

}  // namespace korvel
