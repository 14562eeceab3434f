// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "platform/midi/Synthesizer.h"

namespace korvel::platform {

/// For who plays a recording alone; there at once, without a SoundFont.
class SilentSynthesizer final : public Synthesizer {
 public:
  void noteOn(const MidiNoteMessage&) override {}
  void noteOff(const MidiNoteMessage&) override {}
  void channelMessage(const MidiChannelMessage&) override {}
  void render(std::span<std::int16_t> samples) override {
    std::ranges::fill(samples, std::int16_t{0});
  }
  void silence() override {}
};

}  // namespace korvel::platform
