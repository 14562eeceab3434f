// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/UserText.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace korvel::platform {
namespace {

/// The number of the place that begins there; 0 where none does.
std::size_t placeAt(std::string_view line, std::size_t at) {
  if (line[at] != '%' || at + 1 == line.size()) return 0;
  const char digit = line[at + 1];
  return digit >= '1' && digit <= '9' ? static_cast<std::size_t>(digit - '0') : 0;
}

[[maybe_unused]] std::size_t placesOf(std::string_view line) {
  std::size_t most = 0;
  for (std::size_t at = 0; at < line.size(); ++at) most = std::max(most, placeAt(line, at));
  return most;
}

std::string sameWords(const Phrase& phrase) { return phrase.english; }

}  // namespace

UserText UserText::verbatim(std::string text) {
  UserText made;
  made.m_verbatim = std::move(text);
  return made;
}

std::string UserText::english() const { return in(sameWords); }

/// At once for all places, as what is put in may look like a place.
std::string UserText::in(const std::function<std::string(const Phrase&)>& translate) const {
  if (m_phrase.empty()) return m_verbatim;
  const std::string line = translate(m_phrase);
  std::string filled;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const std::size_t place = placeAt(line, at);
    if (place == 0 || place > m_arguments.size()) {
      filled += line[at];
    } else {
      filled += m_arguments[place - 1].in(translate);
      ++at;
    }
  }
  return filled;
}

void UserText::requirePlaces() const { assert(placesOf(m_phrase.english) == m_arguments.size()); }

}  // namespace korvel::platform
