// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AudioSystem.h"

#include "platform/SoundServer.h"

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
