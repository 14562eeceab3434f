// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/LeftWords.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {
namespace {

using platform::Phrase;
using platform::phrase;
using platform::UserText;

/// What imports count, then what readers do.
constexpr Phrase kWords[] = {
    phrase("LeftOut", "basses of chords"),
    phrase("LeftOut", "names of chords that the chord book does not have"),
    phrase("LeftOut", "notes moved by octaves"),
    phrase("LeftOut", "notes moved to the nearest twelfth of a beat"),
    phrase("LeftOut", "notes on a string that sounds another one"),
    phrase("LeftOut", "notes that no hand could play with the others"),
    phrase("LeftOut", "arpeggios"),
    phrase("LeftOut", "bends"),
    phrase("LeftOut", "changes of key"),
    phrase("LeftOut", "changes of sound"),
    phrase("LeftOut", "changes of swing"),
    phrase("LeftOut", "chord names"),
    phrase("LeftOut", "cue notes"),
    phrase("LeftOut", "dead notes"),
    phrase("LeftOut", "directions"),
    phrase("LeftOut", "fades"),
    phrase("LeftOut", "grace notes"),
    phrase("LeftOut", "hammer-ons and pull-offs"),
    phrase("LeftOut", "harmonics"),
    phrase("LeftOut", "let ring"),
    phrase("LeftOut", "lyrics"),
    phrase("LeftOut", "markers"),
    phrase("LeftOut", "notes beyond their bars"),
    phrase("LeftOut", "notes out of range"),
    phrase("LeftOut", "notes without strings"),
    phrase("LeftOut", "ornaments"),
    phrase("LeftOut", "palm mutes"),
    phrase("LeftOut", "palm muting"),
    phrase("LeftOut", "pedals"),
    phrase("LeftOut", "places on the neck"),
    phrase("LeftOut", "slides"),
    phrase("LeftOut", "staccatos"),
    phrase("LeftOut", "strokes"),
    phrase("LeftOut", "tapped notes"),
    phrase("LeftOut", "taps"),
    phrase("LeftOut", "taps, slaps and pops"),
    phrase("LeftOut", "texts"),
    phrase("LeftOut", "ties to nothing"),
    phrase("LeftOut", "tracks that break off"),
    phrase("LeftOut", "tremolo bars"),
    phrase("LeftOut", "tremolo picking"),
    phrase("LeftOut", "trills"),
    phrase("LeftOut", "vibrato"),
    phrase("LeftOut", "vibratos"),
};

/// Text tablature is counted by how many strings it is for.
std::optional<UserText> systemsIn(std::string_view what) {
  constexpr std::string_view kBegin = "systems of ";
  constexpr std::string_view kEnd = " strings";
  if (!what.starts_with(kBegin) || !what.ends_with(kEnd)) return std::nullopt;
  what.remove_prefix(kBegin.size());
  what.remove_suffix(kEnd.size());
  return UserText(phrase("LeftOut", "systems of %1 strings"), std::string(what));
}

UserText wordsOf(const std::string& what) {
  if (auto systems = systemsIn(what)) return *std::move(systems);
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
