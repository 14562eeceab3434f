// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/BestFingering.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "tab/text/QBTabBuilder.h"

namespace korvel {
namespace {

constexpr std::size_t kFewestTones = 2;

/// Frets that the hand moves from its position for a tone; none for an open string.
int reach(const QBTone& tone, int handAt) {
  return tone.fret() == 0 ? 0 : std::abs(tone.fret() - handAt);
}

/// Takes the position of that note that lies nearest to the hand; there must be one.
platform::Ref<QBTone> takePosition(Tones& positions, int note, int handAt) {
  auto best = positions.end();
  for (auto at = positions.begin(); at != positions.end(); ++at) {
    if (largeToneOf(**at) != note) continue;
    if (best == positions.end() || reach(**at, handAt) < reach(**best, handAt)) best = at;
  }
  const platform::Ref<QBTone> position = *best;
  positions.erase(best);
  return position;
}

/// Where each of the tones goes, in their order.
Tones assignPositions(const Tones& tones, const QBChord& fingering) {
  Tones free = tonesOf(fingering);
  const int handAt = free.at(0)->fret();
  Tones positions;
  for (const auto& tone : tones)
    positions.push_back(takePosition(free, largeToneOf(*tone), handAt));
  return positions;
}

/// A hold without tones, with an index and a span that know of none.
void clear(QBHold& hold, const Tones& tones) {
  for (const auto& tone : tones) hold.deleteTone(tone);
  hold.readSortedTones().clear();
  hold.m_minFret = hold.m_maxFret = 0;
}

void addMoved(QBHold& hold, const QBTone& tone, const QBTone& position) {
  QBTone* moved = hold.addTone(position.string(), position.fret(), tone.amp());
  moved->setDuration(tone.duration());
  if (tone.hasTicks()) moved->setTicks(tone.ticks());
  moved->setActive(tone.active());
  if (tone.hasGroup()) moved->setGroup(tone.group());
}

}  // namespace

void BestFingering::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = tonesOf(*current);
  if (tones.size() < kFewestTones) return;
  QBTabBuilder builder(current, m_instrument(), 0, 0);
  builder.collect();
  builder.keepComplete();
  const QBChord* fingering = builder.best();
  if (!fingering) return;
  const Tones positions = assignPositions(tones, *fingering);
  clear(*current->hold(), tones);
  for (std::size_t i = 0; i < tones.size(); ++i)
    addMoved(*current->hold(), *tones[i], *positions[i]);
}

}  // namespace korvel
