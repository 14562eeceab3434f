// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/SongMidi.h"

#include <algorithm>

#include "export/score/SongScore.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kDivision = 480;
constexpr int kTicksOfStep = kDivision / kSixteenthsOfQuarter;
constexpr int kSoundingTicksOfStep = kTicksOfStep * 95 / 100;
constexpr int kVelocity = 50;
constexpr int kRelease = 20;

void addTones(std::vector<MidiNote>& notes, const QBHold& hold, const std::vector<int>& open,
              std::int64_t start) {
  for (const QBTone* tone : hold.tones()) {
    if (!tone->isActive() || tone->string() < 0 || tone->string() >= kStrings) continue;
    const int pitch = addNotes(open[static_cast<std::size_t>(tone->string())], tone->fret());
    notes.push_back({start, std::int64_t{kSoundingTicksOfStep} * tone->soundingSteps(), pitch,
                     kVelocity, kRelease});
  }
}

}  // namespace

MidiSequence midiOf(QBSong& song, const std::optional<Meter>& meter) {
  const Score score = headOf(song);
  MidiSequence sequence;
  sequence.title = score.title;
  sequence.instrument = score.instrument;
  sequence.division = kDivision;
  sequence.quarterSeconds = 60 / score.tempo;
  sequence.meter = meter ? *meter : meterOf(song);
  std::int64_t start = 0;
  for (const auto& chord : song.allChords()) {
    if (const QBHold* hold = chord->hold())
      addTones(sequence.notes, *hold, score.openStrings, start);
    start += kTicksOfStep;
  }
  return sequence;
}

}  // namespace korvel
