// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/TonePlaces.h"

#include <algorithm>

#include "model/instruments/PlaceKey.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {
namespace {

/// The song may be walking over its chords, so that its caches have to stay.
void indexAnew(QBHold& hold) {
  auto& index = hold.readSortedTones();
  index.clear();
  hold.m_minFret = hold.m_maxFret = 0;
  for (QBTone* tone : hold.tones()) {
    index.insert_or_assign(keyOf(tone->string(), tone->fret()), tone);
    if (tone->fret() == 0) continue;
    hold.m_minFret = hold.m_minFret == 0 ? tone->fret() : std::min(hold.m_minFret, tone->fret());
    hold.m_maxFret = std::max(hold.m_maxFret, tone->fret());
  }
}

}  // namespace

void moveTones(const QBChord& chord, const TonePlaces& places) {
  const Tones tones = tonesOf(chord);
  if (tones.empty()) return;
  for (std::size_t i = 0; i < tones.size(); ++i) {
    if (!places[i]) {
      chord.hold()->deleteTone(tones[i]);
      continue;
    }
    if (tones[i]->string() != places[i]->string) tones[i]->setString(places[i]->string);
    if (tones[i]->fret() != places[i]->fret) tones[i]->setFret(places[i]->fret);
  }
  indexAnew(*chord.hold());
}

}  // namespace korvel
