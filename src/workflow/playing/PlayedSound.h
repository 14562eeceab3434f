// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <optional>

#include "platform/deck/DeckOutput.h"
#include "playback/QBMIDIPlayer.h"

namespace korvel {

/// What is heard of a song, and how a loop of it is practised.
struct PlayedSound {
  /// The guitar is tuned as the recording, whose A may not be at 440 Hz.
  bool recordedPitch = false;
  double mix = 1;         ///< 0 the recording alone, 1 the guitar alone; in the middle both whole.
  bool apart = false;     ///< The recording on the left, the guitar on the right.
  double cents = 0;       ///< By which the recording is transposed.
  RoundsOfLoop rounds{};  ///< What is between the rounds of a loop, and how these get faster.
  OwnPart silent{};       ///< Of the guitar, what its user plays.

  bool hasRecording() const { return mix < 1; }
  /// Whether a loop does more than begin again.
  bool hasRounds() const { return rounds.ramp || rounds.between != BetweenRounds::nothing; }
  platform::DeckLevels levels() const {
    const auto share = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return {share(2 - 2 * mix), share(2 * mix), apart};
  }
};

}  // namespace korvel
