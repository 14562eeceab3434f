// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string_view>

#include "platform/persistence/Ref.h"
#include "platform/text/UserError.h"

namespace korvel {

class QBHarmony;
class QBTabMgr;

/// A root, 0..11 with C = 0, and a declared chord type: what names a chord.
struct ChordName {
  int baseTone = 0;
  platform::Ref<QBHarmony> harmony;
};

/// A text that names no chord. What is said quotes it and tells what would.
class NoChordName : public std::invalid_argument, public platform::Worded {
 public:
  explicit NoChordName(const platform::UserText& text)
      : std::invalid_argument(text.english()), Worded(text) {}
};

/// Reads "F#m7" or "Bb", with any of the spellings of a note and blanks around. The type is written
/// as it is declared in that store, or as players write it too: "min", "M7", "+". Throws
/// NoChordName.
ChordName parseChordName(const QBTabMgr& db, std::string_view text);

}  // namespace korvel
