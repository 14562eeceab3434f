// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/SoundConnection.h"

#include <cubeb/cubeb.h>

#include <map>
#include <span>

#include "platform/sound/AudioSystem.h"

namespace korvel::platform {
namespace {

constexpr Phrase kNoServer = phrase(
    "Message",
    "no sound server can be reached and there is no sound card; start PipeWire, PulseAudio or "
    "JACK, or plug a device in");

Phrase missing(SoundDirection direction) {
  return direction == SoundDirection::input
             ? phrase("Message", "no sound input \"%1\"; there is %2")
             : phrase("Message", "no sound output \"%1\"; there is %2");
}

/// The list that the library made, for as long as it is read.
class Listing {
 public:
  Listing(cubeb* context, SoundDirection direction) : m_context(context) {
    const auto type =
        direction == SoundDirection::input ? CUBEB_DEVICE_TYPE_INPUT : CUBEB_DEVICE_TYPE_OUTPUT;
    if (cubeb_enumerate_devices(context, type, &m_list) != CUBEB_OK) throw AudioError(kNoServer);
  }
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;
  ~Listing() { cubeb_device_collection_destroy(m_context, &m_list); }

  std::span<const cubeb_device_info> devices() const { return {m_list.device, m_list.count}; }

 private:
  cubeb* m_context;
  cubeb_device_collection m_list{};
};

std::string friendlyName(const cubeb_device_info& device) {
  const char* name = device.friendly_name ? device.friendly_name : device.device_id;
  return name ? name : "Unnamed device";
}

}  // namespace

SoundConnection::SoundConnection() {
  cubeb* context = nullptr;
  if (cubeb_init(&context, "Korvel", nullptr) != CUBEB_OK) throw AudioError(kNoServer);
  m_context.reset(context);
}

void SoundConnection::Close::operator()(cubeb* context) const { cubeb_destroy(context); }

std::vector<SoundDevice> SoundConnection::devices(SoundDirection direction) const {
  const Listing listing(context(), direction);
  std::vector<SoundDevice> found;
  std::map<std::string, int> seen;
  for (const cubeb_device_info& device : listing.devices()) {
    if (device.state != CUBEB_DEVICE_STATE_ENABLED) continue;
    std::string name = friendlyName(device);
    if (const int count = ++seen[name]; count > 1) name += " (" + std::to_string(count) + ")";
    found.push_back({name, device.device_id ? device.device_id : name, device.devid});
  }
  return found;
}

SoundDevice SoundConnection::find(SoundDirection direction, const std::string& name) const {
  const std::vector<SoundDevice> known = devices(direction);
  if (name.empty() || name == AudioSystem::kSystemDefault) return {};
  std::string others;
  for (const SoundDevice& device : known) {
    if (device.name == name) return device;
    others += ", \"" + device.name + "\"";
  }
  throw AudioError(missing(direction), name,
                   '"' + std::string(AudioSystem::kSystemDefault) + '"' + others);
}

}  // namespace korvel::platform
