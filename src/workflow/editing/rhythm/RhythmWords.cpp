// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/RhythmWords.h"

#include <cmath>

#include "analysis/beats/WrittenChords.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {

using platform::phrase;
using platform::UserText;

std::string metreName(const rhythm::Metre& metre) {
  const TimeSignature signature = signatureOf(metre);
  return std::to_string(signature.beat) + '/' + std::to_string(signature.beattype);
}

platform::Phrase feelName(rhythm::Feel feel) {
  switch (feel) {
    case rhythm::Feel::swing:
      return phrase("Rhythm", "swing");
    case rhythm::Feel::triplets:
      return phrase("Rhythm", "triplets");
    case rhythm::Feel::straight:
      break;
  }
  return phrase("Rhythm", "straight");
}

UserText rhythmText(const rhythm::Reading& reading) {
  return {phrase("Rhythm", "%1 beats a minute, %2, %3"), std::lround(reading.tempo()),
          metreName(reading.metre), feelName(reading.feel)};
}

UserText rhythmText(const QBSong& song, const rhythm::Reading& reading) {
  const auto bars = song.allMeasures();
  const bool isEven = !song.isSwung() && reading.feel == rhythm::Feel::swing;
  const rhythm::Feel feel = song.isSwung() ? rhythm::Feel::swing
                            : isEven       ? rhythm::Feel::straight
                                           : reading.feel;
  const std::string metre = bars.empty() ? metreName(reading.metre)
                                         : std::to_string(bars.back()->beat()) + '/' +
                                               std::to_string(bars.back()->beattype());
  return {phrase("Rhythm", "%1 beats a minute, %2, %3"), std::lround(song.tempo()), metre,
          feelName(feel)};
}

UserText rhythmText(const rhythm::Alternative& other) {
  const UserText plain(phrase("Rhythm", "%1 in %2"), std::lround(other.tempo),
                       metreName(other.metre));
  if (other.feel == rhythm::Feel::straight) return plain;
  return {phrase("Rhythm", "%1, %2"), plain, feelName(other.feel)};
}

UserText offerText(const rhythm::Alternative& other) {
  if (!other.isNear()) return rhythmText(other);
  return {phrase("Rhythm", "%1 (probable, too)"), rhythmText(other)};
}

std::optional<UserText> missedTempoText(const rhythm::Reading& reading,
                                        const rhythm::Wishes& wishes) {
  if (rhythm::hasWishedTempo(reading, wishes)) return {};
  return UserText(phrase("Rhythm", "no beats near %1 a minute fit its notes, so it is read at %2"),
                  std::lround(*wishes.tempo), std::lround(reading.tempo()));
}

UserText keyText(const rhythm::Key& key) {
  const std::string tonic(nameInKey(key.tonic, key.tonic + (key.minor ? kNotesPerOctave : 0)));
  return {key.minor ? phrase("Rhythm", "%1 minor") : phrase("Rhythm", "%1 major"), tonic};
}

}  // namespace korvel
