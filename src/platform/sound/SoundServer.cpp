// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/SoundServer.h"

#include <utility>

#include "platform/sound/SoundConnection.h"
#include "platform/sound/SoundQueue.h"

namespace korvel::platform {
namespace {

std::vector<std::string> names(SoundDirection direction) {
  std::vector<std::string> names{AudioSystem::kSystemDefault};
  for (const SoundDevice& device : SoundConnection().devices(direction))
    names.push_back(device.name);
  return names;
}

/// Throws when there is no such device.
void check(SoundDirection direction, const std::string& device) {
  SoundConnection().find(direction, device);
}

}  // namespace

SoundServer& SoundServer::ofProcess() {
  static SoundServer server;
  return server;
}

std::vector<std::string> SoundServer::inputs() { return names(SoundDirection::input); }

std::vector<std::string> SoundServer::outputs() { return names(SoundDirection::output); }

std::unique_ptr<AudioQueue> SoundServer::newInput(const std::string& device,
                                                  const StreamDescription& description,
                                                  AudioQueue::InputCallback callback) {
  check(SoundDirection::input, device);
  return std::make_unique<SoundQueue>(device, description, std::move(callback));
}

std::unique_ptr<AudioQueue> SoundServer::newOutput(const std::string& device,
                                                   const StreamDescription& description,
                                                   AudioQueue::OutputCallback callback) {
  check(SoundDirection::output, device);
  return std::make_unique<SoundQueue>(device, description, std::move(callback));
}

}  // namespace korvel::platform
