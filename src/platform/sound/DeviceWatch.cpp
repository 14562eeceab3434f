// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/DeviceWatch.h"

#include <cubeb/cubeb.h>

#include <algorithm>
#include <utility>

#include "platform/sound/AudioSystem.h"

namespace korvel::platform {
namespace {

cubeb_device_type typeOf(SoundDirection direction) {
  return direction == SoundDirection::input ? CUBEB_DEVICE_TYPE_INPUT : CUBEB_DEVICE_TYPE_OUTPUT;
}

}  // namespace

DeviceWatch::DeviceWatch(const SoundConnection& connection, SoundDirection direction,
                         std::string id, std::function<void()> lost)
    : m_connection(connection),
      m_direction(direction),
      m_id(std::move(id)),
      m_lost(std::move(lost)) {
  // Systems that tell nothing of their devices end the stream of one that goes.
  cubeb_register_device_collection_changed(m_connection.context(), typeOf(m_direction), &changed,
                                           this);
  m_thread = std::thread([this] { watch(); });
}

DeviceWatch::~DeviceWatch() {
  cubeb_register_device_collection_changed(m_connection.context(), typeOf(m_direction), nullptr,
                                           nullptr);
  m_ending = true;
  wake();
  m_thread.join();
}

void DeviceWatch::changed(cubeb*, void* watch) { static_cast<DeviceWatch*>(watch)->wake(); }

void DeviceWatch::wake() {
  ++m_changes;
  m_changes.notify_one();
}

void DeviceWatch::watch() {
  int seen = m_changes;
  while (!m_ending && isThere()) {
    m_changes.wait(seen);
    seen = m_changes;
  }
  if (!m_ending) m_lost();
}

bool DeviceWatch::isThere() const {
  try {
    const auto devices = m_connection.devices(m_direction);
    return std::ranges::any_of(devices, [&](const auto& device) { return device.id == m_id; });
  } catch (const AudioError&) {
    return false;
  }
}

}  // namespace korvel::platform
