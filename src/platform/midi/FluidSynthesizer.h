// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/midi/Synthesizer.h"

namespace korvel::platform {

/// General MIDI from the sounds of a SoundFont, without reverb. A note sounds from the next
/// multiple of 64 frames on, counted from the last silence.
class FluidSynthesizer final : public Synthesizer {
 public:
  /// programs: what shall be ready to play, as the percussion of channel 9 is; a change to any
  /// other one loads its sounds first, which takes a while. Throws SoundFontError.
  FluidSynthesizer(const std::filesystem::path& soundFont, const std::vector<int>& programs);
  ~FluidSynthesizer() override;

  void tune(double cents) override;
  void noteOn(const MidiNoteMessage& note) override;
  void noteOff(const MidiNoteMessage& note) override;
  void channelMessage(const MidiChannelMessage& message) override;
  void render(std::span<std::int16_t> samples) override;
  void silence() override;

 private:
  struct Engine;
  std::unique_ptr<Engine> m_engine;
};

}  // namespace korvel::platform
