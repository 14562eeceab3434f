// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/WrittenName.h"

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {

std::string writtenName(const QBChord& chord) {
  const QBHarmony* harmony = chord.harmony();
  if (!harmony) return {};
  const QBSong* song = chord.song();
  const bool isNote = chord.baseTone() == pitchClass(chord.baseTone());
  if (!song || !song->hasKey() || !isNote) return chord.fullHarmonyName();
  return std::string(nameInKey(chord.baseTone(), song->key())) + harmony->type();
}

}  // namespace korvel
