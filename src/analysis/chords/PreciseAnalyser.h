// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/chords/QBChordAnalyser.h"
#include "music/Neck.h"
#include "platform/loop/Workers.h"
#include "precise/Blocks.h"
#include "precise/Settings.h"

namespace korvel {

class Listening;

/// Has a recording heard as a whole by another thread, then makes a chord of each of its blocks,
/// from the first in which something sounds to the last. Blocks between them in which nothing does
/// become empty chords, so that the song keeps time with the recording. The time stamp of a chord
/// is its block's first sample, at 44100 a second. A tone that is struck again is at least as loud
/// as it was in the chord before, and softer when it rings on.
class PreciseAnalyser final : public QBChordAnalyser {
 public:
  /// The source, which may be set later, has to deliver samples (`readSamples`) when the first step
  /// is taken. Without a tuning the guitar is tuned as usual. turn: when the
  /// recording is listened to, beside others.
  PreciseAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning,
                  const precise::Settings& settings,
                  platform::Workers::Turn turn = platform::Workers::Turn::last);
  /// Of a recording that is listened to already, in that tuning.
  PreciseAnalyser(std::shared_ptr<Listening> listening, QBTuning* tuning);
  ~PreciseAnalyser() override;

  /// Answers none for as long as the recording is listened to.
  QBChord* nextChord(QBSong* song) override;
  /// Returns when the next step may bring a chord, or after a few hundredths of a second.
  void wait() const;
  /// Leaves out what was not read of the recording yet; whether there was something.
  bool cutShort();
  /// Listens no more. No chord comes then.
  void giveUp();
  bool atEnd() const override;
  double progress() const override;

 private:
  void listen();
  void keepBlocks(std::vector<precise::BlockTones> blocks);

  OpenPitches m_open{};
  precise::Settings m_settings{};
  platform::Workers::Turn m_turn = platform::Workers::Turn::last;
  std::shared_ptr<Listening> m_listening;  ///< None before it listens, and afterwards.
  std::optional<std::vector<precise::BlockTones>> m_blocks;
  std::size_t m_first = 0;
  std::size_t m_next = 0;
};

}  // namespace korvel
