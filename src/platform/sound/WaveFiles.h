// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/sound/AudioSystem.h"
#include "platform/sound/WaveFileQueue.h"

namespace korvel::platform {

/// An audio system whose microphone is a WAV file and whose speaker is one, for who has a recording
/// instead of a guitar, and for tests. An empty path is a device that is missing.
class WaveFiles final : public AudioSystem {
 public:
  explicit WaveFiles(std::filesystem::path microphone, std::filesystem::path speaker = {},
                     Pace pace = Pace::realTime);

  /// kSystemDefault and the file, by its whole name.
  std::vector<std::string> inputs() override;
  std::vector<std::string> outputs() override;
  /// Records as kLiveSound only.
  std::unique_ptr<AudioQueue> newInput(const std::string& device,
                                       const StreamDescription& description,
                                       AudioQueue::InputCallback callback) override;
  /// Plays only sound that has 16 bits a channel.
  std::unique_ptr<AudioQueue> newOutput(const std::string& device,
                                        const StreamDescription& description,
                                        AudioQueue::OutputCallback callback) override;

 private:
  std::filesystem::path m_microphone;
  std::filesystem::path m_speaker;
  Pace m_pace;
};

}  // namespace korvel::platform
