// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/NameRules.h"

#include <algorithm>
#include <cstddef>

#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

/// No file's name is longer, which songs are often named after.
constexpr std::ptrdiff_t kLongestName = 255;

/// Of UTF-8, in which further bytes of a character begin with the bits 10.
std::ptrdiff_t charactersOf(const std::string& text) {
  return std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; });
}

}  // namespace

void requireShortName(const std::string& name) {
  const std::ptrdiff_t characters = charactersOf(name);
  if (characters > kLongestName)
    throw EditRefused(
        platform::phrase("Message", "a name of %1 characters is too long; give one of at most %2"),
        characters, kLongestName);
}

void requireName(const std::string& name, const platform::Phrase& refusal) {
  if (name.find_first_not_of(" \t\r\n") == std::string::npos) throw EditRefused(refusal);
  requireShortName(name);
}

}  // namespace korvel
