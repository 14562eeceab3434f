// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/Piece.h"

#include <cctype>

namespace korvel::exchange {

namespace {

constexpr int kFirstGuitar = 24;  ///< Of General MIDI: nylon strings.
constexpr int kLastGuitar = 31;   ///< Harmonics; basses follow.
constexpr std::size_t kStringsOfGuitar = 6;

bool speaksOfGuitar(std::string name) {
  std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
  return name.find("guit") != std::string::npos && name.find("bass") == std::string::npos;
}

}  // namespace

bool Track::isGuitar() const {
  if (isDrums) return false;
  if (!open.empty()) return open.size() == kStringsOfGuitar;
  if (program >= 0) return program >= kFirstGuitar && program <= kLastGuitar;
  return speaksOfGuitar(name);
}

}  // namespace korvel::exchange
