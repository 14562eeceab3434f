// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

#include "platform/midi/MusicEvent.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {

/// Turns MIDI into sound. For one thread at a time; nothing here waits, throws or allocates.
class Synthesizer {
 public:
  static constexpr int kSampleRate = platform::kSampleRate;
  static constexpr int kChannels = 2;

  Synthesizer() = default;
  Synthesizer(const Synthesizer&) = delete;
  Synthesizer& operator=(const Synthesizer&) = delete;
  virtual ~Synthesizer() = default;

  /// All notes but percussion sound so many cents higher than at A = 440 Hz; before the first one.
  virtual void tune(double /*cents*/) {}
  virtual void noteOn(const MidiNoteMessage& note) = 0;
  virtual void noteOff(const MidiNoteMessage& note) = 0;
  virtual void channelMessage(const MidiChannelMessage& message) = 0;
  /// The frames that follow those of the last call, stereo, interleaved.
  virtual void render(std::span<std::int16_t> samples) = 0;
  /// Ends all that sounds, at once.
  virtual void silence() = 0;
};

}  // namespace korvel::platform
