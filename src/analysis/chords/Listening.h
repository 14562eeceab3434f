// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/beats/HeardSound.h"
#include "music/Neck.h"
#include "platform/loop/Workers.h"
#include "precise/Blocks.h"

namespace korvel {

class QBSampleSource;

/// A recording that a thread beside the main one listens to: from its sound to its notes and to
/// what sounds in each of its blocks. That takes no stored object, so that nobody has to wait for
/// it, and several recordings are listened to at once. For one thread, the main one.
class Listening {
 public:
  /// What was heard: the notes with strings, frets and rhythm, and the tones of all blocks, which
  /// are gathered for a song of slices only.
  struct Heard {
    HeardSound sound;
    std::vector<precise::BlockTones> blocks;
    Grid grid = Grid::slices;  ///< What was wished for, unless nothing can be read in bars.
  };

  /// Begins when a thread is free. The source is to deliver samples (`readSamples`) by now, and is
  /// read by nobody else until this is over; it may be asked for its progress, and be stopped.
  Listening(std::shared_ptr<QBSampleSource> source, const OpenPitches& open,
            const HearingSettings& settings,
            platform::Workers::Turn turn = platform::Workers::Turn::last);
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  /// Gives up, without waiting.
  ~Listening();

  /// How much of the work is done, 0..1.
  double progress() const;
  bool isOver() const { return m_job->isOver(); }
  /// Returns when it is over, or after that time.
  void waitFor(std::chrono::milliseconds patience) const { m_job->waitFor(patience); }
  /// Leaves out what was not read yet; whether there was something.
  bool cutShort();
  /// Once it is over, and only once. Throws what went wrong.
  Heard take();

 private:
  struct Work;

  std::shared_ptr<Work> m_work;
  std::shared_ptr<platform::WorkerJob> m_job;
};

}  // namespace korvel
