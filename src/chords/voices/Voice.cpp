// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/voices/Voice.h"

#include <algorithm>

namespace korvel::chords {
namespace {

std::optional<Voice> voiceNamed(std::string_view name) {
  for (const Voice voice : {Voice::melody, Voice::bass})
    if (nameOf(voice) == name) return voice;
  return {};
}

}  // namespace

std::string_view nameOf(Voice voice) { return voice == Voice::melody ? "melody" : "bass"; }

std::string namesOf(const Voices& voices) {
  std::string names;
  for (const Voice each : voices) names.append(names.empty() ? "" : ",").append(nameOf(each));
  return names;
}

std::optional<Voices> voicesNamed(std::string_view names) {
  Voices voices;
  while (!names.empty()) {
    const std::size_t end = std::min(names.find(','), names.size());
    const std::optional<Voice> voice = voiceNamed(names.substr(0, end));
    if (!voice) return {};
    if (std::ranges::find(voices, *voice) == voices.end()) voices.push_back(*voice);
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return voices;
}

}  // namespace korvel::chords
