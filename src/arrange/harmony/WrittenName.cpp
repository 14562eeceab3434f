// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/WrittenName.h"

#include "arrange/harmony/ChordName.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {

std::string writtenName(const QBChord& chord) {
  return writtenName({chord.baseTone(), chord.harmony()}, chord.song());
}

std::string writtenName(const ChordName& name, const QBSong* song) {
  if (!name.harmony) return {};
  const bool isNote = name.baseTone == pitchClass(name.baseTone);
  const std::string root = song && song->hasKey() && isNote
                               ? std::string(nameInKey(name.baseTone, song->key()))
                               : QBHarmony::noteAsString(name.baseTone).value_or("");
  return root + name.harmony->type();
}

}  // namespace korvel
