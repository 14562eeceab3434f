// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/sound/AudioQueue.h"
#include "platform/text/UserError.h"

namespace korvel::platform {

/// Sound that cannot be recorded or played. The text names the device and says what to do.
class AudioError : public UserError {
 public:
  using UserError::UserError;
};

/// The devices of this machine, or files in their place, and queues on them. Main thread.
class AudioSystem {
 public:
  /// Stands for the device that the desktop has chosen, and follows when it chooses another.
  static constexpr Phrase kDefaultDevice = phrase("Message", "System default");
  static constexpr const char* kSystemDefault = kDefaultDevice.english;

  AudioSystem() = default;
  AudioSystem(const AudioSystem&) = delete;
  AudioSystem& operator=(const AudioSystem&) = delete;
  virtual ~AudioSystem() = default;

  /// Names as the desktop shows them, kSystemDefault first; of devices of one name the second is
  /// "NAME (2)". Throws AudioError when there is no sound server.
  virtual std::vector<std::string> inputs() = 0;
  virtual std::vector<std::string> outputs() = 0;

  /// A queue on the device of this name; none and kSystemDefault are the default. Throws AudioError
  /// when there is no such device, naming those that there are, or no sound server.
  virtual std::unique_ptr<AudioQueue> newInput(const std::string& device,
                                               const StreamDescription& description,
                                               AudioQueue::InputCallback callback) = 0;
  virtual std::unique_ptr<AudioQueue> newOutput(const std::string& device,
                                                const StreamDescription& description,
                                                AudioQueue::OutputCallback callback) = 0;

  /// The system of this process: the installed one, or else the desktop's sound server.
  static AudioSystem& main();
  /// Puts one in, such as files in the place of devices. It must outlive all use of main(); nullptr
  /// takes it out.
  static void install(AudioSystem* system);
};

}  // namespace korvel::platform
