// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/LaidBars.h"

#include <algorithm>

#include "analysis/beats/WrittenChords.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

TimeSignature writtenOf(const QBMeasure& measure) { return {measure.beat(), measure.beattype()}; }

/// As the beats of the recording go on where the song has them.
void takeBeats(QBSong& song, rhythm::Reading& reading) {
  const SongTime time(song);
  if (!time.isAsRecorded()) return;
  const int before = (std::max(-time.begin(), 0) + kTicksOfBeat - 1) / kTicksOfBeat;
  reading.beats.clear();
  for (int tick = -before * kTicksOfBeat; tick - kTicksOfBeat < time.end(); tick += kTicksOfBeat)
    reading.beats.push_back(time.secondsOf(tick));
  reading.firstBar = static_cast<std::size_t>(before);
}

bool haveSameBeats(const rhythm::Reading& laid, const rhythm::Reading& recorded) {
  constexpr double kSameTempo = 1.05;
  const double ratio = laid.tempo() / std::max(recorded.tempo(), 1.0);
  return laid.metre.compound == recorded.metre.compound && ratio < kSameTempo &&
         ratio > 1 / kSameTempo;
}

}  // namespace

bool isLaidOtherwise(QBSong& song, const rhythm::Reading& reading) {
  const auto bars = song.allMeasures();
  if (!song.isOnBeats() || bars.empty()) return false;
  const TimeSignature all = writtenOf(*bars.front());
  const auto isSame = [&](const auto& bar) { return writtenOf(*bar) == all; };
  return std::ranges::all_of(bars, isSame) && all != signatureOf(reading.metre);
}

void readAsLaid(QBSong& song, rhythm::Reading& reading) {
  const auto metre = metreOf(writtenOf(*song.allMeasures().front()));
  if (!metre)
    throw EditRefused(platform::phrase("Message",
                                       "%1: nothing is read in the metre that it was laid into; "
                                       "change the rhythm of the song that it was made from"),
                      song.title());
  takeBeats(song, reading);
  reading.metre = *metre;
}

void wishAsLaid(const rhythm::Reading& laid, const rhythm::Reading& recorded,
                rhythm::Wishes& wishes) {
  wishes.metre = laid.metre;
  if (laid.firstBar < laid.beats.size()) wishes.barLine = laid.beats[laid.firstBar];
  if (laid.metre.compound != recorded.metre.compound) wishes.feel.reset();
  if (haveSameBeats(laid, recorded)) return;
  wishes.tempo = laid.tempo();
  wishes.taps.clear();
  wishes.fixedBeats.clear();
}

}  // namespace korvel
