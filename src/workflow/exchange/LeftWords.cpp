// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/LeftWords.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace korvel {
namespace {

using platform::Phrase;
using platform::phrase;
using platform::UserText;

/// What readers and imports count.
constexpr Phrase kWords[] = {
    phrase("LeftOut", "basses of chords"),
    phrase("LeftOut", "names of chords that the chord book does not have"),
    phrase("LeftOut", "notes moved by octaves"),
    phrase("LeftOut", "notes moved to the nearest twelfth of a beat"),
    phrase("LeftOut", "notes on a string that sounds another one"),
    phrase("LeftOut", "notes that no hand could play with the others"),
};

UserText wordsOf(const std::string& what) {
  const auto* found = std::ranges::find(
      kWords, what, [](const Phrase& each) { return std::string_view(each.english); });
  return found == std::end(kWords) ? UserText::verbatim(what) : UserText(*found);
}

}  // namespace

UserText textOfLeft(const LeftOut& left) {
  UserText text;
  for (const auto& [what, count] : left) {
    const UserText counted(phrase("LeftOut", "%1 (%2)"), wordsOf(what), count);
    text = text.empty() ? counted : UserText(phrase("LeftOut", "%1, %2"), text, counted);
  }
  return text;
}

}  // namespace korvel
