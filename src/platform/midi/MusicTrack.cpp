// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/MusicTrack.h"

#include <algorithm>
#include <cmath>

namespace korvel::platform {
namespace {

constexpr int kChannels = 16;
constexpr double kHardest = 127;
constexpr int kFirstChannelStatus = 0xA0;
constexpr int kFirstSystemStatus = 0xF0;

bool isTime(double time) { return std::isfinite(time) && time >= 0; }

bool isData(std::uint8_t byte) { return byte < 0x80; }

bool isNote(const MidiNoteMessage& note) {
  return note.channel < kChannels && isData(note.note) && isData(note.velocity) &&
         isData(note.releaseVelocity) && note.velocity > 0 && isTime(note.duration);
}

}  // namespace

bool MusicTrack::addNote(double time, const MidiNoteMessage& note) {
  return isNote(note) && isTime(time) && add({time, note});
}

bool MusicTrack::addLeadIn(double before, const MidiNoteMessage& note) {
  return isNote(note) && isTime(before) && add({-before, note});
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

void MusicTrack::setVolume(double factor) {
  if (factor == m_volume) return;
  m_volume = factor;
  m_changed();
}

std::vector<MusicEvent> MusicTrack::sounding() const {
  if (m_muted || m_volume <= 0) return {};
  std::vector<MusicEvent> events = m_events;
  for (MusicEvent& event : events)
    if (auto* note = std::get_if<MidiNoteMessage>(&event.message))
      note->velocity =
          static_cast<std::uint8_t>(std::clamp(note->velocity * m_volume, 1.0, kHardest));
  return events;
}

bool MusicTrack::add(const MusicEvent& event) {
  m_events.push_back(event);
  m_changed();
  return true;
}

}  // namespace korvel::platform
