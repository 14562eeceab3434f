// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/ChordGrip.h"

#include <algorithm>

#include "model/book/QBLeftHandPattern.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "tab/layout/ChordSearch.h"

namespace korvel {
namespace {

std::optional<int> fingerOn(const QBChord& chord, int string) {
  const QBLeftHandPattern* pattern = chord.leftpattern();
  if (!pattern) return std::nullopt;
  for (const QBString* row : pattern->strings())
    if (row->order() == string && row->baseTone() > 0) return row->baseTone();
  return std::nullopt;
}

}  // namespace

ChordGrip::ChordGrip(const QBChord& chord) : name(shownName(chord)) {
  for (const auto& tone : byStringAndFret(chord)) {
    const auto finger = tone->fret() > 0 ? fingerOn(chord, tone->string()) : std::nullopt;
    tones.push_back({tone->string(), tone->fret(), tone->isActive(), finger});
  }
}

bool ChordGrip::isPlayed(int string) const {
  return std::ranges::any_of(
      tones, [&](const Tone& tone) { return tone.string == string && tone.active; });
}

int ChordGrip::highestFret() const {
  int highest = 0;
  for (const Tone& tone : tones) highest = std::max(highest, tone.fret);
  return highest;
}

std::string ChordGrip::shorthand() const {
  std::string text;
  const bool wide = highestFret() > 9;
  for (int string = 0; string < kStrings; ++string) {
    // The highest of several on a string is the one that the tablature shows.
    std::string fret = "x";
    for (const Tone& tone : tones)
      if (tone.string == string && tone.active) fret = std::to_string(tone.fret);
    text += (wide && string > 0 ? "-" : "") + fret;
  }
  return text;
}

}  // namespace korvel
