// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AudioSystem.h"

namespace korvel::platform {
namespace {

AudioSystem*& installed() {
  static AudioSystem* system = nullptr;
  return system;
}

}  // namespace

AudioSystem& AudioSystem::main() {
  if (!installed()) throw AudioError("there are no sound devices: no system of them was chosen");
  return *installed();
}

void AudioSystem::install(AudioSystem* system) { installed() = system; }

}  // namespace korvel::platform
