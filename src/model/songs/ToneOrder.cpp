// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/ToneOrder.h"

#include <algorithm>
#include <functional>
#include <tuple>

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

int noteOf(const platform::Ref<QBTone>& tone) { return largeToneOf(*tone); }

}  // namespace

Tones tonesOf(const QBChord& chord) {
  const QBHold* hold = chord.hold();
  return hold ? hold->tones().snapshot() : Tones();
}

Tones loudestFirst(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(tones, std::greater(), [](const auto& tone) { return tone->amp(); });
  return tones;
}

Tones highestFirst(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(tones, std::greater(), noteOf);
  return tones;
}

Tones lowestFirst(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(tones, std::less(), noteOf);
  return tones;
}

Tones byStringAndFret(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(
      tones, {}, [](const auto& tone) { return std::tuple(tone->string(), tone->fret()); });
  return tones;
}

int largeToneOf(const QBTone& tone) {
  return addNotes(QBInstrument::largeToneOfStringS(tone.string()), tone.fret());
}

void deleteTones(const QBChord& chord, std::span<const platform::Ref<QBTone>> tones) {
  for (const auto& tone : tones) chord.hold()->deleteTone(tone);
}

}  // namespace korvel
