// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/sound/AudioSystem.h"

namespace korvel::test {

/// A loudspeaker that plays when the test says so, on the thread that says it, and keeps what was
/// heard. The queue's stop waits for the playing, as a device's does.
class HandAudio final : public platform::AudioSystem {
 public:
  HandAudio();
  ~HandAudio() override;

  std::vector<std::string> inputs() override { return {kSystemDefault}; }
  std::vector<std::string> outputs() override { return {kSystemDefault}; }
  std::unique_ptr<platform::AudioQueue> newInput(const std::string& device,
                                                 const platform::StreamDescription& description,
                                                 platform::AudioQueue::InputCallback) override;
  /// Knows only the default device.
  std::unique_ptr<platform::AudioQueue> newOutput(
      const std::string& device, const platform::StreamDescription& description,
      platform::AudioQueue::OutputCallback callback) override;

  /// The queue that runs plays so much; nothing when none does.
  void play(std::size_t frames);
  /// Pulls the plug.
  void lose();
  std::vector<std::int16_t> heard() const;
  /// How often buffers were handed to its queues.
  int enqueued() const;

 private:
  class Output;
  struct State;

  std::shared_ptr<State> m_state;
};

}  // namespace korvel::test
