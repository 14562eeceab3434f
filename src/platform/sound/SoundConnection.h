// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

struct cubeb;

namespace korvel::platform {

/// Whether a device records or plays.
enum class SoundDirection { input, output };

/// A device that records or plays, as the sound server offers it.
struct SoundDevice {
  std::string name;              ///< As the desktop shows it, numbered where others have it too.
  std::string id;                ///< The same whenever the desktop is asked.
  const void* handle = nullptr;  ///< For streams of the connection; none is the default device.
};

/// A connection to the desktop's sound server, or to the sound cards when there is none.
class SoundConnection {
 public:
  /// Throws AudioError when there is neither.
  SoundConnection();

  /// What is plugged in. Throws AudioError when the server is gone. For any thread.
  std::vector<SoundDevice> devices(SoundDirection direction) const;
  /// The device of this name; the default one for "" and AudioSystem::kSystemDefault. Throws
  /// AudioError when there is none, naming those that there are.
  SoundDevice find(SoundDirection direction, const std::string& name) const;

  cubeb* context() const { return m_context.get(); }

 private:
  struct Close {
    void operator()(cubeb* context) const;
  };
  std::unique_ptr<cubeb, Close> m_context;
};

}  // namespace korvel::platform
