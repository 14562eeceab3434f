// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/Metronome.h"

namespace korvel {
namespace {

constexpr std::uint8_t kPercussion = 9;
constexpr std::uint8_t kSideStick = 37;
constexpr std::uint8_t kHighWoodBlock = 76;
constexpr std::uint8_t kVelocityOfClick = 60;
constexpr std::uint8_t kVelocityOfFirst = 90;
constexpr float kSeconds = 0.1F;

platform::MidiNoteMessage noteOf(const TimedBeat& beat) {
  platform::MidiNoteMessage note;
  note.channel = kPercussion;
  note.note = beat.first ? kHighWoodBlock : kSideStick;
  note.velocity = beat.first ? kVelocityOfFirst : kVelocityOfClick;
  note.duration = kSeconds;
  return note;
}

}  // namespace

void addClicks(std::span<const TimedBeat> beats, platform::MusicTrack& track) {
  for (const TimedBeat& beat : beats)
    beat.time < 0 ? track.addLeadIn(-beat.time, noteOf(beat))
                  : track.addNote(beat.time, noteOf(beat));
}

}  // namespace korvel
