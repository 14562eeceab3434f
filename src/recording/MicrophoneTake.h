// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "recording/LiveTake.h"
#include "recording/QBWaveIn.h"

namespace korvel {

/// A microphone, and the take of every block that somebody reads of it. Main thread.
class MicrophoneTake {
 public:
  /// How often a block should be read, so that none has to wait.
  static constexpr double kStepSeconds = 0.05;

  /// Makes the file of the take; throws FileError. The device is the system's default when it is
  /// empty, and is opened when the source is started.
  MicrophoneTake(std::filesystem::path file, const std::string& device);
  MicrophoneTake(const MicrophoneTake&) = delete;
  MicrophoneTake& operator=(const MicrophoneTake&) = delete;
  /// Stops the source. The file stays.
  ~MicrophoneTake();

  /// Where the blocks are read.
  const std::shared_ptr<QBWaveIn>& source() const { return m_wave; }
  LiveTake& take() { return m_take; }
  const LiveTake& take() const { return m_take; }
  const QBAudioMicrophone& microphone() const { return m_wave->m_microphone(); }
  /// Whether a block was read since this was asked last.
  bool hasGrown();
  /// How much of what was played is not in the take, or was lost since its last block, in seconds.
  double lostSeconds() const;

 private:
  LiveTake m_take;
  std::unique_ptr<QBChordAnalyser> m_analyser;  ///< Which the microphone finds its source by.
  std::shared_ptr<QBWaveIn> m_wave;
  bool m_grown = false;
};

}  // namespace korvel
