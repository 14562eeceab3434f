// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "platform/sound/SoundConnection.h"

namespace korvel::platform {

/// Notices that a device was unplugged. A sound server goes on with another device then, as if that
/// was what somebody asked for.
class DeviceWatch {
 public:
  /// Calls lost, on a thread of its own and at most once, when no device of this id is left. The
  /// connection must outlive the watch, and nobody else may watch it.
  DeviceWatch(const SoundConnection& connection, SoundDirection direction, std::string id,
              std::function<void()> lost);
  DeviceWatch(const DeviceWatch&) = delete;
  DeviceWatch& operator=(const DeviceWatch&) = delete;
  /// `lost` does not run any more when this returns. `lost` itself must not destroy the watch.
  ~DeviceWatch();

 private:
  static void changed(cubeb* context, void* watch);
  void wake();
  void watch();
  bool isThere() const;

  const SoundConnection& m_connection;
  const SoundDirection m_direction;
  const std::string m_id;
  const std::function<void()> m_lost;
  std::atomic<int> m_changes = 0;  ///< A number, as waiting needs a value that differs.
  std::atomic<bool> m_ending = false;
  std::thread m_thread;
};

}  // namespace korvel::platform
