// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

namespace korvel::platform {

/// A note, from its start to its end.
struct MidiNoteMessage {
  std::uint8_t channel = 0;  ///< 0..15
  std::uint8_t note = 0;     ///< 0..127, 60 the middle C.
  std::uint8_t velocity = 0;
  std::uint8_t releaseVelocity = 0;
  float duration = 0;  ///< In beats.
};

/// What changes a channel: status 0xA0..0xEF with the channel in it, such as 0xC0, a program change
/// on channel 0.
struct MidiChannelMessage {
  std::uint8_t status = 0;
  std::uint8_t data1 = 0;
  std::uint8_t data2 = 0;
};

struct MusicEvent {
  double time = 0;  ///< In beats; a beat is a second at rate 1.
  std::variant<MidiChannelMessage, MidiNoteMessage> message;
};

/// Sorted by time; at the same time messages for channels come before notes.
using MusicEvents = std::vector<MusicEvent>;

}  // namespace korvel::platform
