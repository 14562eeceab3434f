// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/CopiedChord.h"

#include <algorithm>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {

CopiedChord::Tone::Tone(int ofString, int ofFret, double loudness, int length, bool sounds)
    : string(ofString), fret(ofFret), amp(loudness), duration(length), active(sounds) {}

CopiedChord::Tone::Tone(const QBTone& tone)
    : string(tone.string()),
      fret(tone.fret()),
      amp(tone.amp()),
      duration(tone.duration()),
      active(tone.isActive()),
      ticks(tone.ticks()) {}

void CopiedChord::Tone::addTo(QBHold& hold, int onString, int onFret) const {
  QBTone* tone = hold.addTone(onString, onFret, amp);
  tone->setDuration(duration);
  tone->setActive(active);
  if (ticks > 0 && hold.chord() && hold.chord()->hasTicks()) tone->setTicks(ticks);
}

CopiedChord::CopiedChord(const QBChord& chord)
    : duration(chord.hasTicks() ? std::max(chord.duration(), 1) : chord.duration()),
      ticks(chord.ticks()) {
  if (const QBHold* hold = chord.hold())
    for (const QBTone* tone : hold->tones()) tones.emplace_back(*tone);
}

CopiedChord::CopiedChord(std::vector<Tone> itsTones, int sixteenths)
    : tones(std::move(itsTones)), duration(sixteenths) {}

std::vector<CopiedChord> CopiedChord::of(QBSong& song, int first, int last) {
  std::vector<CopiedChord> copied;
  const auto& chords = song.allChords();
  for (int chord = first; chord <= last; ++chord)
    copied.emplace_back(*chords.at(static_cast<std::size_t>(chord)));
  return copied;
}

}  // namespace korvel
