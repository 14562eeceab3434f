// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/ToneOrder.h"

#include <algorithm>
#include <functional>
#include <tuple>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"

namespace korvel {
namespace {

/// The note of any tone of a chord.
auto noteIn(const QBChord& chord) {
  return [strings = openStringsOf(chord)](const auto& tone) {
    return strings.note(tone->string(), tone->fret());
  };
}

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
  std::ranges::stable_sort(tones, std::greater(), noteIn(chord));
  return tones;
}

Tones lowestFirst(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(tones, std::less(), noteIn(chord));
  return tones;
}

Tones byStringAndFret(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(
      tones, {}, [](const auto& tone) { return std::tuple(tone->string(), tone->fret()); });
  return tones;
}

int largeToneOf(const QBTone& tone) { return openStringsOf(tone).note(tone.string(), tone.fret()); }

void deleteTones(const QBChord& chord, std::span<const platform::Ref<QBTone>> tones) {
  for (const auto& tone : tones) chord.hold()->deleteTone(tone);
}

}  // namespace korvel
