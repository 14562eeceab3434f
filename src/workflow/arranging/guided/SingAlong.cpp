// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/SingAlong.h"

#include <algorithm>

#include "model/book/QBHarmony.h"
#include "music/Pitch.h"
#include "workflow/arranging/guided/ChordSheet.h"
#include "workflow/arranging/guided/StrummedSong.h"

namespace korvel {

SongGuide singAlong(const SingChoices& choices) {
  return {platform::phrase("UndoAction", "Sing Along"),
          platform::phrase("Log", "Song to sing along made."), [choices](QBSong& song, QBSong&) {
            return strummed(song, {.plain = choices.plain, .halfTones = choices.halfTones});
          }};
}

std::string firstChordAt(QBSong& song, int halfTones) {
  const ChordSheet sheet(song, true);
  const auto named = std::ranges::find_if(
      sheet.steps(), [](const ChordSheet::Step& step) { return step.has_value(); });
  if (named == sheet.steps().end()) return "";
  const ChordName& name = **named;
  return QBHarmony::noteAsString(pitchClass(name.baseTone + halfTones)).value_or("") +
         name.harmony->type();
}

}  // namespace korvel
