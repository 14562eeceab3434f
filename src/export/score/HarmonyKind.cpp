// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/HarmonyKind.h"

#include <map>

namespace korvel {

HarmonyKind harmonyKindOf(std::string_view type) {
  static const std::map<std::string_view, HarmonyKind> kinds{
      {"", {"major", {}, ""}},
      {"m", {"minor", {}, "m"}},
      {"5", {"power", {}, "5"}},
      {"sus4", {"suspended-fourth", {}, "sus4"}},
      {"sus2", {"suspended-second", {}, "sus2"}},
      {"dim", {"diminished", {}, "dim"}},
      {"aug", {"augmented", {}, "aug"}},
      {"7", {"dominant", {}, "7"}},
      {"m7", {"minor-seventh", {}, "m7"}},
      {"maj7", {"major-seventh", {}, "maj7"}},
      {"7sus4", {"suspended-fourth", {{7, 0, "add", ""}}, "7sus4"}},
      {"add9", {"major", {{9, 0, "add", "add"}}, ""}},
      {"m7b5", {"half-diminished", {}, "m7b5"}},
      {"dim7", {"diminished-seventh", {}, "dim7"}},
      {"6", {"major-sixth", {}, "6"}},
      {"m6", {"minor-sixth", {}, "m6"}},
      {"madd9", {"minor", {{9, 0, "add", "add"}}, "m"}},
      {"mMaj7", {"major-minor", {}, "mMaj7"}},
      {"7#5", {"augmented-seventh", {}, "7#5"}},
      {"7b5", {"dominant", {{5, -1, "alter", ""}}, "7"}},
      {"9", {"dominant-ninth", {}, "9"}},
      {"m9", {"minor-ninth", {}, "m9"}},
      {"maj9", {"major-ninth", {}, "maj9"}},
      {"7b9", {"dominant", {{9, -1, "add", ""}}, "7"}},
      {"7#9", {"dominant", {{9, 1, "add", ""}}, "7"}},
      {"11", {"dominant-11th", {}, "11"}},
      {"m11", {"minor-11th", {}, "m11"}},
      {"13", {"dominant-13th", {}, "13"}},
  };
  const auto found = kinds.find(type);
  return found == kinds.end() ? HarmonyKind{"other", {}, std::string(type)} : found->second;
}

}  // namespace korvel
