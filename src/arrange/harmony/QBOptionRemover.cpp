// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBOptionRemover.h"

#include <algorithm>
#include <utility>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// The steps add up from the root on.
int noteOfOption(const QBChord& chord, int option) {
  const auto& tones = chord.harmony()->allTones();
  int note = pitchClass(chord.baseTone());
  for (int i = 0; i <= option; ++i)
    note = pitchClass(note + pitchClass(tones.at(static_cast<std::size_t>(i))->step()));
  return note;
}

}  // namespace

QBOptionRemover::QBOptionRemover(std::vector<int> options) : m_options(std::move(options)) {
  std::ranges::sort(m_options);
}

void QBOptionRemover::execute(QBChord*, QBChord* current, QBChord*) {
  if (!current->harmony() || !current->hold()) return;
  if (removeOptions(*current)) current->setHarmony(findHarmonyByChord(QBTabMgr::db(), *current));
}

bool QBOptionRemover::removeOptions(const QBChord& chord) const {
  const auto tones = static_cast<int>(chord.harmony()->allTones().size());
  bool removed = false;
  for (const int option : m_options) {
    if (option >= tones) break;
    if (chord.hold()->removeTonesByNote(noteOfOption(chord, option))) removed = true;
  }
  return removed;
}

}  // namespace korvel
