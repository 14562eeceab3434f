// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/HarmonyKind.h"

#include <map>

namespace korvel {

const HarmonyKind& harmonyKindOf(std::string_view type) {
  static const std::map<std::string_view, HarmonyKind> kinds{
      {"", {"major", {}}},
      {"m", {"minor", {}}},
      {"5", {"power", {}}},
      {"sus4", {"suspended-fourth", {}}},
      {"sus2", {"suspended-second", {}}},
      {"dim", {"diminished", {}}},
      {"aug", {"augmented", {}}},
      {"7", {"dominant", {}}},
      {"m7", {"minor-seventh", {}}},
      {"maj7", {"major-seventh", {}}},
      {"7sus4", {"suspended-fourth", {{7, 0, "add"}}}},
      {"add9", {"major", {{9, 0, "add"}}}},
      {"m7b5", {"half-diminished", {}}},
      {"dim7", {"diminished-seventh", {}}},
      {"6", {"major-sixth", {}}},
      {"m6", {"minor-sixth", {}}},
      {"madd9", {"minor", {{9, 0, "add"}}}},
      {"mMaj7", {"major-minor", {}}},
      {"7#5", {"augmented-seventh", {}}},
      {"7b5", {"dominant", {{5, -1, "alter"}}}},
      {"9", {"dominant-ninth", {}}},
      {"m9", {"minor-ninth", {}}},
      {"maj9", {"major-ninth", {}}},
      {"7b9", {"dominant", {{9, -1, "add"}}}},
      {"7#9", {"dominant", {{9, 1, "add"}}}},
      {"11", {"dominant-11th", {}}},
      {"m11", {"minor-11th", {}}},
      {"13", {"dominant-13th", {}}},
  };
  static const HarmonyKind other{"other", {}};
  const auto found = kinds.find(type);
  return found == kinds.end() ? other : found->second;
}

}  // namespace korvel
