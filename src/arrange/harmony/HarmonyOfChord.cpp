// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kFewestTones = 2;

}  // namespace

// Harmonies stand by falling order and ties go to the later one, so that the smaller order wins. A
// harmony that the chord already has keeps out those of a larger order.
QBHarmony* findHarmonyByChord(const QBTabMgr& db, QBChord& chord) {
  const unsigned sounding = chord.hold() ? chord.hold()->pitchClasses() : 0;
  int best = 0;
  for (const auto& harmony : db.harmonies()) {
    const QBHarmony* known = chord.harmony();
    if (known && known->order() < harmony->order()) continue;
    if (static_cast<int>(harmony->allTones().size()) < best) continue;
    for (int root = 0; root < kNotesPerOctave; ++root) {
      const int score = harmony->countTones(root, sounding);
      if (score < kFewestTones || score < best) continue;
      chord.setHarmony(harmony);
      chord.setBaseTone(root);
      best = score;
    }
  }
  return chord.harmony();
}

QBHarmony* readHarmony(QBChord& chord) { return findHarmonyByChord(QBTabMgr::of(chord), chord); }

}  // namespace korvel
