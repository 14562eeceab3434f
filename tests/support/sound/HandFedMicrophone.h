// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/sound/AudioSystem.h"

namespace korvel::test {

/// The audio system of the process for the time of a test. Its microphone hears what the test puts
/// in, on the test's thread.
class HandFedMicrophone final : public platform::AudioSystem {
 public:
  HandFedMicrophone() { install(this); }
  ~HandFedMicrophone() override { install(nullptr); }

  /// Fills the next enqueued buffer; false when there is none, and the sound is lost.
  bool hear(std::span<const std::int16_t> samples) {
    const double time = m_frames;
    m_frames += static_cast<double>(samples.size()) / 2;
    if (!m_queue || m_queue->buffers.empty()) return false;
    platform::QueueBuffer& buffer = *m_queue->buffers.front();
    m_queue->buffers.pop_front();
    std::memcpy(buffer.data.data(), samples.data(), samples.size_bytes());
    buffer.dataByteSize = static_cast<std::uint32_t>(samples.size_bytes());
    m_queue->callback(buffer, {time}, static_cast<std::uint32_t>(samples.size() / 2));
    return true;
  }
  bool hear(std::int16_t value, std::size_t packets = 8192) {
    return hear(std::vector<std::int16_t>(2 * packets, value));
  }
  /// The device is unplugged, or has nothing more to say.
  void end(bool lost) {
    m_queue->lost = lost;
    m_queue->running = false;
  }
  /// Happens once, just before the queue answers whether it runs.
  std::function<void()> whenAsked;
  /// What was asked of the queue since the microphone was made.
  std::string asked;
  std::string device;
  platform::StreamDescription description;

  std::vector<std::string> inputs() override { return {kSystemDefault}; }
  std::vector<std::string> outputs() override { return {}; }
  std::unique_ptr<platform::AudioQueue> newInput(
      const std::string& name, const platform::StreamDescription& wanted,
      platform::AudioQueue::InputCallback callback) override {
    if (name == "missing")
      throw platform::AudioError(platform::UserText::verbatim("missing: there is no such device"));
    device = name;
    description = wanted;
    m_frames = 0;
    return std::make_unique<Queue>(*this, std::move(callback));
  }
  std::unique_ptr<platform::AudioQueue> newOutput(const std::string&,
                                                  const platform::StreamDescription&,
                                                  platform::AudioQueue::OutputCallback) override {
    throw platform::AudioError(platform::UserText::verbatim("there is no speaker"));
  }

 private:
  struct Queue final : platform::AudioQueue {
    Queue(HandFedMicrophone& owner, InputCallback called)
        : microphone(owner), callback(std::move(called)) {
      microphone.m_queue = this;
    }
    ~Queue() override { microphone.m_queue = nullptr; }

    const platform::StreamDescription& description() const override { return platform::kLiveSound; }
    platform::QueueBuffer& allocateBuffer(std::uint32_t bytes) override {
      microphone.asked += "allocate ";
      memory.emplace_back(bytes, std::byte{7});
      made.push_back({.data = memory.back(), .dataByteSize = bytes});
      return made.back();
    }
    void enqueue(platform::QueueBuffer& buffer) override {
      const auto sound = buffer.sound();
      const bool silent = std::ranges::all_of(sound, [](std::byte b) { return b == std::byte{}; });
      microphone.asked += silent ? "enqueue " : "enqueue-unzeroed ";
      buffers.push_back(&buffer);
    }
    void flush() override { microphone.asked += "flush "; }
    void start() override {
      microphone.asked += "start ";
      running = true;
    }
    void stop() override {
      microphone.asked += "stop ";
      running = false;
    }
    void reset() override { microphone.asked += "reset "; }
    bool isRunning() const override {
      if (microphone.whenAsked) std::exchange(microphone.whenAsked, nullptr)();
      return running;
    }
    bool isLost() const override { return lost; }
    void onRunningChanged(RunningListener) override {}
    platform::AudioTimeStamp currentTime() const override { return {.hostTime = 1'000'000'000}; }
    void setVolume(float) override {}
    float volume() const override { return 0.5F; }

    HandFedMicrophone& microphone;
    InputCallback callback;
    std::deque<std::vector<std::byte>> memory;
    std::deque<platform::QueueBuffer> made;
    std::deque<platform::QueueBuffer*> buffers;
    bool running = false;
    bool lost = false;
  };

  Queue* m_queue = nullptr;
  double m_frames = 0;
};

}  // namespace korvel::test
