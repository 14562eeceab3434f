// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/DoubtWords.h"

#include <algorithm>
#include <string>

#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {

using platform::phrase;
using platform::UserText;

namespace {

UserText stringText(const OpenPitches& open, int string) {
  const auto pitchClassAt = [&open](int at) {
    return pitchClass(open.at(static_cast<std::size_t>(at)));
  };
  int alike = 0;
  for (int other = 0; other < kStrings; ++other)
    if (pitchClassAt(other) == pitchClassAt(string)) ++alike;
  const std::string name(nameOfPitchClass(pitchClassAt(string)));
  if (alike > 1) return {phrase("Doubt", "%1 string (%2)"), name, kStrings - string};
  return {phrase("Doubt", "%1 string"), name};
}

}  // namespace

UserText placeOnNeck(const OpenPitches& open, int string, int fret) {
  if (fret == 0) return {phrase("Doubt", "%1 open"), stringText(open, string)};
  return {phrase("Doubt", "%1, fret %2"), stringText(open, string), fret};
}

UserText reasonOf(const Doubt& doubt, const SongNotes& notes, const OpenPitches& open) {
  const fingering::Note& note = notes[doubt.note].note;
  if (doubt.kind == Doubt::Kind::missing || note.string < 0)
    return {phrase("Doubt", "perhaps %1 is missing"), noteName(note.pitch)};
  if (doubt.kind == Doubt::Kind::chord)
    return phrase("Doubt", "perhaps not all notes of this chord are right");
  const UserText place = placeOnNeck(open, note.string, note.fret);
  const std::string other = doubt.other ? noteName(notes[*doubt.other].note.pitch) : "";
  switch (doubt.kind) {
    case Doubt::Kind::overtone:
      return {phrase("Doubt", "%1: perhaps an overtone of %2"), place, other};
    case Doubt::Kind::octave:
      return {phrase("Doubt", "%1: perhaps %2"), place, other};
    case Doubt::Kind::restrike:
      return {phrase("Doubt", "%1: perhaps it only rings on"), place};
    case Doubt::Kind::missing:
    case Doubt::Kind::chord:
    case Doubt::Kind::note:
      break;
  }
  return {phrase("Doubt", "%1: perhaps no note"), place};
}

}  // namespace korvel
