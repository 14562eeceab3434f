// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/loop/RunLoop.h"

namespace korvel {

class MicrophoneTake;
class QBSampleSource;

/// Records notes for a calibration from a microphone, on a timer of the run loop. The take is in a
/// file as well until this goes, so that it is there when the program is killed.
class NoteRecording {
 public:
  NoteRecording();
  NoteRecording(const NoteRecording&) = delete;
  NoteRecording& operator=(const NoteRecording&) = delete;
  ~NoteRecording();

  /// Records from that device; an empty name is the system's default. To be called once. Throws
  /// AudioError and FileError.
  void start(const std::string& device);
  /// Ends the recording; what was played until now is kept. Without effect when it has ended.
  void stop();
  bool isRunning() const { return m_timer != nullptr; }
  /// The device went away, which ended the recording.
  bool isLost() const;
  /// How much was recorded, in seconds.
  double elapsed() const;
  /// The loudest sample of the last block, 0..1.
  float level() const;
  /// What was recorded, for CalibrateCommand.
  std::shared_ptr<QBSampleSource> sound() const;
  /// Called when it ends, whatever ends it.
  void onEnded(std::function<void()> listener) { m_ended = std::move(listener); }

 private:
  void takeBlocks();
  void step();

  std::unique_ptr<MicrophoneTake> m_sound;
  std::unique_ptr<platform::RunLoop::Timer> m_timer;
  std::function<void()> m_ended;
};

}  // namespace korvel
