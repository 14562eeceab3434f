// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/sound/AudioSystem.h"

namespace korvel::platform {

/// The devices of the desktop's sound server: PulseAudio or PipeWire, JACK, or else ALSA's cards.
/// Connects anew for each listing and each queue, so that it may come and go meanwhile.
class SoundServer final : public AudioSystem {
 public:
  static SoundServer& ofProcess();

  std::vector<std::string> inputs() override;
  std::vector<std::string> outputs() override;
  std::unique_ptr<AudioQueue> newInput(const std::string& device,
                                       const StreamDescription& description,
                                       AudioQueue::InputCallback callback) override;
  std::unique_ptr<AudioQueue> newOutput(const std::string& device,
                                        const StreamDescription& description,
                                        AudioQueue::OutputCallback callback) override;
};

}  // namespace korvel::platform
