// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/chords/QBChordAnalyser.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"
#include "precise/Blocks.h"
#include "precise/Settings.h"
#include "precise/Settings.h"

namespace korvel {

class Transcription;

/// Hears a recording as a whole, then makes a chord of each of its blocks, from the first in which
/// something sounds to the last. Blocks between them in which nothing does become empty chords, so
/// that the song keeps time with the recording. The time stamp of a chord is its block's first
/// sample, at 44100 a second. A tone that is struck again is at least as loud as it was in the
/// chord before, and softer when it rings on.
class PreciseAnalyser final : public QBChordAnalyser {
 public:
  /// The source, which may be set later, has to deliver samples (`readSamples`) when the first step
  /// is taken. Without a tuning the guitar is tuned as usual.
  PreciseAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning,
                  const precise::Settings& settings);
  ~PreciseAnalyser() override;

  /// Answers none for as long as the recording is listened to, a few hundredths of a second a step.
  QBChord* nextChord(QBSong* song) override;
  bool atEnd() const override;
  double progress() const override;

 private:
  void listen();
  void gather();
  void keepBlocks();

  OpenPitches m_open;
  precise::Settings m_settings;
  std::unique_ptr<Transcription> m_listening;  ///< None before it listens, and afterwards.
  bool m_heard = false;
  platform::Slices m_gathering;
  std::vector<precise::BlockTones> m_gathered;
  std::optional<std::vector<precise::BlockTones>> m_blocks;
  std::size_t m_first = 0;
  std::size_t m_next = 0;
};

}  // namespace korvel
