// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>

#include "platform/midi/MusicEvent.h"

namespace korvel::platform {

/// A part of a music sequence. Times and durations are beats. Main thread.
class MusicTrack {
 public:
  /// The listener hears of every event that is added, and of muting.
  explicit MusicTrack(std::function<void()> changed) : m_changed(std::move(changed)) {}

  // Both answer whether the event was added: it is refused when a time, a duration or a number is
  // none that MIDI knows.
  bool addNote(double time, const MidiNoteMessage& note);
  bool addChannelEvent(double time, const MidiChannelMessage& message);

  /// A note so many beats before the beginning, heard when somebody plays from there.
  bool addLeadIn(double before, const MidiNoteMessage& note);

  /// One that is muted is not played until it is muted no more; also while it plays.
  void setMuted(bool muted);
  bool isMuted() const { return m_muted; }

  /// Notes are struck so much harder, up to what MIDI knows; 1 at first, also while it plays.
  void setVolume(double factor);

  /// In the order in which they were added.
  const std::vector<MusicEvent>& events() const { return m_events; }
  /// As they are to sound.
  std::vector<MusicEvent> sounding() const;

 private:
  bool add(const MusicEvent& event);

  std::function<void()> m_changed;
  std::vector<MusicEvent> m_events;
  bool m_muted = false;
  double m_volume = 1;
};

}  // namespace korvel::platform
