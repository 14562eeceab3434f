// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/HandAudio.h"

#include <cstddef>
#include <mutex>
#include <span>
#include <utility>

#include "platform/sound/BufferQueue.h"

namespace korvel::test {

using platform::AudioError;

struct HandAudio::State {
  mutable std::mutex mutex;
  Output* running = nullptr;
  std::vector<std::int16_t> heard;
  int enqueued = 0;
};

class HandAudio::Output final : public platform::BufferQueue {
 public:
  Output(std::shared_ptr<State> state, const platform::StreamDescription& description,
         OutputCallback callback)
      : BufferQueue(description, std::move(callback)), m_state(std::move(state)) {}
  ~Output() override { stop(); }

  void start() override {
    const std::scoped_lock lock(m_state->mutex);
    m_state->running = this;
    begin();
  }
  void stop() override {
    const std::scoped_lock lock(m_state->mutex);
    if (m_state->running == this) m_state->running = nullptr;
    end();
  }
  void enqueue(platform::QueueBuffer& buffer) override {
    ++m_state->enqueued;
    BufferQueue::enqueue(buffer);
  }
  platform::AudioTimeStamp currentTime() const override {
    return {static_cast<double>(frames()), now()};
  }

  /// Of the device's thread.
  void playFrames(std::size_t count) {
    std::vector<std::int16_t> samples(count * description().channelsPerFrame);
    play(std::as_writable_bytes(std::span(samples)));
    m_state->heard.insert(m_state->heard.end(), samples.begin(), samples.end());
  }
  using BufferQueue::lose;

 private:
  std::shared_ptr<State> m_state;
};

HandAudio::HandAudio() : m_state(std::make_shared<State>()) {}

HandAudio::~HandAudio() = default;

std::unique_ptr<platform::AudioQueue> HandAudio::newInput(const std::string&,
                                                          const platform::StreamDescription&,
                                                          platform::AudioQueue::InputCallback) {
  throw AudioError(platform::UserText::verbatim("there is no microphone"));
}

std::unique_ptr<platform::AudioQueue> HandAudio::newOutput(
    const std::string& device, const platform::StreamDescription& description,
    platform::AudioQueue::OutputCallback callback) {
  if (!device.empty() && device != kSystemDefault)
    throw AudioError(platform::UserText::verbatim(device + ": no such device"));
  return std::make_unique<Output>(m_state, description, std::move(callback));
}

void HandAudio::play(std::size_t frames) {
  const std::scoped_lock lock(m_state->mutex);
  if (m_state->running) m_state->running->playFrames(frames);
}

void HandAudio::lose() {
  const std::scoped_lock lock(m_state->mutex);
  if (m_state->running) std::exchange(m_state->running, nullptr)->lose();
}

int HandAudio::enqueued() const { return m_state->enqueued; }

std::vector<std::int16_t> HandAudio::heard() const {
  const std::scoped_lock lock(m_state->mutex);
  return m_state->heard;
}

}  // namespace korvel::test
