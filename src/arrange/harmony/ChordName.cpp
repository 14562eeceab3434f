// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/ChordName.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "platform/text/Blanks.h"

namespace korvel {
namespace {

using platform::phrase;

/// Half tones above C from A on.
constexpr std::array<int, 7> kNotes{9, 11, 0, 2, 4, 5, 7};

constexpr std::array<std::pair<std::string_view, std::string_view>, 9> kAlsoWritten{{
    {"maj", ""},
    {"M", ""},
    {"min", "m"},
    {"-", "m"},
    {"min7", "m7"},
    {"-7", "m7"},
    {"M7", "maj7"},
    {"+", "aug"},
    {"sus", "sus4"},
}};

bool take(std::string_view& text, std::string_view sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(sign.size());
  return true;
}

/// Takes the root off the text.
std::optional<int> takeRoot(std::string_view& text) {
  if (text.empty()) return std::nullopt;
  const char letter =
      text.front() >= 'a' ? static_cast<char>(text.front() - 'a' + 'A') : text.front();
  if (letter < 'A' || letter > 'G') return std::nullopt;
  text.remove_prefix(1);
  const int note = kNotes.at(static_cast<std::size_t>(letter - 'A'));
  if (take(text, "#") || take(text, "\u266F")) return pitchClass(note + 1);
  if (take(text, "b") || take(text, "\u266D")) return pitchClass(note - 1);
  return note;
}

QBHarmony* harmonyOfType(const QBTabMgr& db, std::string_view type) {
  const auto& all = db.harmonies();
  const auto found = std::ranges::find(all, type, [](const auto& each) { return each->type(); });
  return found == all.end() ? nullptr : found->get();
}

QBHarmony* declared(const QBTabMgr& db, std::string_view type) {
  if (QBHarmony* harmony = harmonyOfType(db, type)) return harmony;
  const auto other =
      std::ranges::find(kAlsoWritten, type, [](const auto& pair) { return pair.first; });
  return other == kAlsoWritten.end() ? nullptr : harmonyOfType(db, other->second);
}

std::string typesDeclared(const QBTabMgr& db) {
  std::string list;
  const auto& all = db.harmonies();
  for (auto harmony = all.rbegin(); harmony != all.rend(); ++harmony)
    if (!(*harmony)->type().empty()) list += (list.empty() ? "" : ", ") + (*harmony)->type();
  return list;
}

}  // namespace

ChordName parseChordName(const QBTabMgr& db, std::string_view text) {
  const std::string_view name = platform::trimmed(text);
  std::string_view rest = name;
  const auto root = takeRoot(rest);
  if (!root)
    throw NoChordName(
        {phrase("Message", "\"%1\" is no chord name: it has to begin with a note from A to G"),
         name});
  QBHarmony* harmony = declared(db, rest);
  if (!harmony)
    throw NoChordName(
        {phrase("Message", "\"%1\" is no chord name: after the note comes nothing or one of %2"),
         name, typesDeclared(db)});
  return {*root, harmony};
}

}  // namespace korvel
