// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/WaveFiles.h"

#include <utility>

namespace korvel::platform {
namespace {

std::vector<std::string> namesOf(const std::filesystem::path& file) {
  if (file.empty()) return {};
  return {AudioSystem::kSystemDefault, file.string()};
}

void require(const std::filesystem::path& file, const std::string& device) {
  if (file.empty())
    throw AudioError(phrase("Message", "no sound file was chosen in the place of a device"));
  if (!device.empty() && device != AudioSystem::kSystemDefault && device != file.string())
    throw AudioError(phrase("Message", "%1: there is no such device; there is \"%2\""), device,
                     file.string());
}

void require(bool possible, const std::filesystem::path& file) {
  if (!possible)
    throw AudioError(phrase("Message", "%1: sound of this kind is not for a WAV file"),
                     file.string());
}

}  // namespace

WaveFiles::WaveFiles(std::filesystem::path microphone, std::filesystem::path speaker, Pace pace)
    : m_microphone(std::move(microphone)), m_speaker(std::move(speaker)), m_pace(pace) {}

std::vector<std::string> WaveFiles::inputs() { return namesOf(m_microphone); }

std::vector<std::string> WaveFiles::outputs() { return namesOf(m_speaker); }

std::unique_ptr<AudioQueue> WaveFiles::newInput(const std::string& device,
                                                const StreamDescription& description,
                                                AudioQueue::InputCallback callback) {
  require(m_microphone, device);
  require(description == kLiveSound, m_microphone);
  return std::make_unique<WaveFileInput>(m_microphone, m_pace, std::move(callback));
}

std::unique_ptr<AudioQueue> WaveFiles::newOutput(const std::string& device,
                                                 const StreamDescription& description,
                                                 AudioQueue::OutputCallback callback) {
  require(m_speaker, device);
  require(description.bitsPerChannel == 16, m_speaker);
  return std::make_unique<WaveFileOutput>(m_speaker, description, m_pace, std::move(callback));
}

}  // namespace korvel::platform
