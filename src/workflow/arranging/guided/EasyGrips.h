// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "arrange/hands/HandShapes.h"

namespace korvel {

/// The grip that is easiest to hold, one for each chord, in a tuning. Each is looked for once.
class EasyGrips {
 public:
  static constexpr int kAnyFret = 24;

  explicit EasyGrips(const OpenStrings& strings, int highestFret = kAnyFret);

  /// Without a barre where that can be; up to the highest fret, but for a chord that has no grip so
  /// low. None for a chord that no hand reaches in this tuning.
  const std::optional<ChordShape>& gripOf(const ChordName& name);
  /// Whether it is one of those that are learnt first: with open strings and up to three fingers,
  /// none above the third fret.
  bool isOpen(const ChordName& name);

 private:
  std::optional<ChordShape> easiest(const ChordName& name) const;

  OpenStrings m_strings;
  int m_highestFret;
  std::map<std::pair<int, std::string>, std::optional<ChordShape>> m_known;
};

}  // namespace korvel
