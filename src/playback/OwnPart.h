// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBTone;

/// A voice that somebody plays. Voices of a chord count from its highest tone, the melody, down;
/// the lowest is the bass.
enum class OwnVoice : std::uint8_t {
  none,
  melody,
  second,
  third,
  fourth,
  fifth,
  bass,
  allButMelody
};

/// What of a song its user plays, so that it is silent otherwise.
struct OwnPart {
  unsigned strings = 0;  ///< A bit each, from 1 << 1 of the highest string on, as guitarists count.
  OwnVoice voice = OwnVoice::none;

  bool operator==(const OwnPart&) const = default;
};

using OwnTones = std::unordered_set<const QBTone*>;

/// The sounding tones of these chords, all of a song in their order, that belong to the part. A
/// tone that is alone in its chord is of the melody or of the bass, whichever it is nearer to; of
/// both in a song that never has two at once.
OwnTones tonesOfPart(const std::vector<platform::Ref<QBChord>>& chords, const OwnPart& part);

}  // namespace korvel
