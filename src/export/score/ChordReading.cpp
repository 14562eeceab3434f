// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/ChordReading.h"

#include <array>

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {

std::vector<const QBTone*> playedTones(const QBChord& chord) {
  std::vector<const QBTone*> played;
  const QBHold* hold = chord.hold();
  if (!hold) return played;
  for (const QBTone* tone : hold->tones())
    if (tone->isActive() && tone->string() >= 0 && tone->string() < kStrings)
      played.push_back(tone);
  return played;
}

int pitchOf(const QBTone& tone, const std::vector<int>& open) {
  return addNotes(open[static_cast<std::size_t>(tone.string())], tone.fret());
}

std::vector<BeatTone> tonesOf(const QBChord& chord, const std::vector<int>& open) {
  std::array<const QBTone*, kStrings> highest{};
  for (const QBTone* tone : playedTones(chord)) {
    const QBTone*& best = highest.at(static_cast<std::size_t>(tone->string()));
    if (tone->fret() >= 0 && (!best || tone->fret() > best->fret())) best = tone;
  }
  std::vector<BeatTone> tones;
  for (const QBTone* tone : highest) {
    if (!tone) continue;
    const int pitch = pitchOf(*tone, open);
    if (pitch <= kHighestNote)
      tones.push_back({{tone->string(), tone->fret(), pitch}, tone->ticks()});
  }
  return tones;
}

std::optional<ScoreHarmony> harmonyOf(const QBChord& chord) {
  const QBHarmony* harmony = chord.harmony();
  if (!harmony || !QBHarmony::noteAsString(chord.baseTone())) return std::nullopt;
  return ScoreHarmony{chord.baseTone(), harmony->type()};
}

Meter meterOf(const QBMeasure& measure) {
  const int type = measure.beattype();
  const bool known = type > 0 && kSixteenthsOfWhole % type == 0;
  if (!known || measure.beat() < 1 || measure.beat() > kSixteenthsOfWhole * 2) return {};
  return {measure.beat(), type};
}

}  // namespace korvel
