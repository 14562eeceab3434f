// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/sound/BufferQueue.h"
#include "platform/sound/DeviceWatch.h"
#include "platform/sound/SoundConnection.h"

struct cubeb_stream;

namespace korvel::platform {

/// A queue on a device of the sound server. It connects when it starts.
class SoundQueue final : public BufferQueue {
 public:
  SoundQueue(std::string device, const StreamDescription& description, InputCallback callback);
  SoundQueue(std::string device, const StreamDescription& description, OutputCallback callback);
  ~SoundQueue() override;

  void start() override;
  void stop() override;
  AudioTimeStamp currentTime() const override;

 private:
  struct Stream;

  std::uint64_t framesHeard() const;

  const SoundDirection m_direction;
  const std::string m_device;
  std::optional<SoundConnection> m_connection;
  std::unique_ptr<Stream> m_stream;
  std::optional<DeviceWatch> m_watch;
  mutable std::atomic<std::uint64_t> m_heard = 0;
};

}  // namespace korvel::platform
