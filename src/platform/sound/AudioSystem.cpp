// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/AudioSystem.h"

#include "platform/sound/SoundServer.h"

namespace korvel::platform {
namespace {

AudioSystem*& installed() {
  static AudioSystem* system = nullptr;
  return system;
}

}  // namespace

AudioSystem& AudioSystem::main() { return installed() ? *installed() : SoundServer::ofProcess(); }

void AudioSystem::install(AudioSystem* system) { installed() = system; }

}  // namespace korvel::platform
