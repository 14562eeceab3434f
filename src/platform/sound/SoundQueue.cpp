// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/SoundQueue.h"

#include <cubeb/cubeb.h>

#include <algorithm>
#include <utility>

#include "platform/sound/AudioSystem.h"

namespace korvel::platform {
namespace {

/// Frames between us and the device. Played sound must bridge the times when a busy machine has
/// none for us; recorded sound waits for us anyway.
constexpr std::uint32_t kOutputLatency = 8192;
constexpr std::uint32_t kInputLatency = 2048;

cubeb_stream_params paramsOf(const StreamDescription& description) {
  cubeb_stream_params params{};
  params.format = CUBEB_SAMPLE_S16NE;
  params.rate = static_cast<std::uint32_t>(description.sampleRate);
  params.channels = description.channelsPerFrame;
  params.layout = params.channels == 1   ? CUBEB_LAYOUT_MONO
                  : params.channels == 2 ? CUBEB_LAYOUT_STEREO
                                         : CUBEB_LAYOUT_UNDEFINED;
  return params;
}

AudioError cannotOpen(const std::string& device) {
  const bool isDefault = device.empty() || device == AudioSystem::kSystemDefault;
  return AudioError(
      phrase("Message",
             "%1: the sound device cannot be opened; check that it is plugged in and that no "
             "other program keeps it"),
      isDefault ? UserText(AudioSystem::kDefaultDevice) : UserText::verbatim(device));
}

}  // namespace

/// The library's stream. Its callbacks end with it.
struct SoundQueue::Stream {
  Stream(SoundQueue& owner, const SoundDevice& device) : queue(owner) {
    cubeb_stream_params params = paramsOf(queue.description());
    const bool input = queue.m_direction == SoundDirection::input;
    const int result = cubeb_stream_init(
        queue.m_connection->context(), &stream, input ? "Recording" : "Playback",
        input ? device.handle : nullptr, input ? &params : nullptr, input ? nullptr : device.handle,
        input ? nullptr : &params, input ? kInputLatency : kOutputLatency, &data, &state, this);
    if (result != CUBEB_OK) throw cannotOpen(queue.m_device);
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() {
    cubeb_stream_stop(stream);
    cubeb_stream_destroy(stream);
  }

  static long data(cubeb_stream*, void* self, const void* in, void* out, long frames) noexcept {
    SoundQueue& queue = static_cast<Stream*>(self)->queue;
    const std::size_t bytes = static_cast<std::size_t>(frames) * queue.description().bytesPerFrame;
    if (in) queue.record({static_cast<const std::byte*>(in), bytes});
    if (out) queue.play({static_cast<std::byte*>(out), bytes});
    return frames;
  }

  static void state(cubeb_stream*, void* self, cubeb_state state) {
    if (state == CUBEB_STATE_ERROR) static_cast<Stream*>(self)->queue.lose();
  }

  SoundQueue& queue;
  cubeb_stream* stream = nullptr;
};

SoundQueue::SoundQueue(std::string device, const StreamDescription& description,
                       InputCallback callback)
    : BufferQueue(description, std::move(callback)),
      m_direction(SoundDirection::input),
      m_device(std::move(device)) {}

SoundQueue::SoundQueue(std::string device, const StreamDescription& description,
                       OutputCallback callback)
    : BufferQueue(description, std::move(callback)),
      m_direction(SoundDirection::output),
      m_device(std::move(device)) {}

SoundQueue::~SoundQueue() { stop(); }

void SoundQueue::start() {
  if (isRunning()) return;
  stop();
  m_connection.emplace();
  const SoundDevice device = m_connection->find(m_direction, m_device);
  m_stream = std::make_unique<Stream>(*this, device);
  m_heard = 0;
  begin();
  if (cubeb_stream_start(m_stream->stream) != CUBEB_OK) {
    stop();
    throw cannotOpen(m_device);
  }
  if (device.handle) m_watch.emplace(*m_connection, m_direction, device.id, [this] { lose(); });
}

void SoundQueue::stop() {
  m_watch.reset();
  if (m_stream) cubeb_stream_stop(m_stream->stream);
  m_stream.reset();
  m_connection.reset();
  end();
}

AudioTimeStamp SoundQueue::currentTime() const {
  const bool input = m_direction == SoundDirection::input;
  return {static_cast<double>(input ? frames() : framesHeard()), now()};
}

std::uint64_t SoundQueue::framesHeard() const {
  std::uint64_t position = 0;
  if (!m_stream || !isRunning() ||
      cubeb_stream_get_position(m_stream->stream, &position) != CUBEB_OK)
    return m_heard;
  // A server may tell a time that runs ahead while it waits for sound.
  position = std::min(position, frames());
  std::uint64_t before = m_heard;
  while (before < position && !m_heard.compare_exchange_weak(before, position)) {
  }
  return m_heard;
}

}  // namespace korvel::platform
