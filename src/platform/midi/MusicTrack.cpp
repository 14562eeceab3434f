// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/MusicTrack.h"

#include <cmath>

namespace korvel::platform {
namespace {

constexpr int kChannels = 16;
constexpr int kFirstChannelStatus = 0xA0;
constexpr int kFirstSystemStatus = 0xF0;

bool isTime(double time) { return std::isfinite(time) && time >= 0; }

bool isData(std::uint8_t byte) { return byte < 0x80; }

}  // namespace

bool MusicTrack::addNote(double time, const MidiNoteMessage& note) {
  const bool known = note.channel < kChannels && isData(note.note) && isData(note.velocity) &&
                     isData(note.releaseVelocity) && note.velocity > 0 && isTime(note.duration);
  return known && isTime(time) && add({time, note});
}

bool MusicTrack::addChannelEvent(double time, const MidiChannelMessage& message) {
  const bool known = message.status >= kFirstChannelStatus && message.status < kFirstSystemStatus &&
                     isData(message.data1) && isData(message.data2);
  return known && isTime(time) && add({time, message});
}

void MusicTrack::setMuted(bool muted) {
  if (muted == m_muted) return;
  m_muted = muted;
  m_changed();
}

bool MusicTrack::add(const MusicEvent& event) {
  m_events.push_back(event);
  m_changed();
  return true;
}

}  // namespace korvel::platform
