// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// A tone that a chord has beside those of its kind, or in place of one of them.
struct HarmonyDegree {
  int value;         ///< 9 for the ninth.
  int alter;         ///< Half tones off that of a dominant chord.
  const char* type;  ///< "add" or "alter".
  const char* text;  ///< Printed in front of the value.
};

/// A chord type in the words of MusicXML.
struct HarmonyKind {
  const char* kind;
  std::vector<HarmonyDegree> degrees;
  /// What is printed behind the root, in front of the degrees; when that is the whole type, they
  /// are not printed.
  std::string text;
};

/// "other" for a type that is not known. type: what stands behind the root, such as "m7".
HarmonyKind harmonyKindOf(std::string_view type);

}  // namespace korvel
