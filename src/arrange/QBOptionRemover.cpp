// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBOptionRemover.h"

#include <algorithm>
#include <utility>

#include "model/Pitch.h"
#include "model/QBChord.h"
#include "model/QBHarmony.h"
#include "model/QBHold.h"
#include "model/QBTabMgr.h"
#include "model/QBToneOfHarmony.h"

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
  if (removeOptions(*current)) current->setHarmony(QBTabMgr::db().findHarmonyByChord(current));
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
