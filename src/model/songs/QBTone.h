// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBHold;

/// One sounding note: a fret of a string.
class QBTone final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  /// Of a tone of which nobody has said how long it sounds, in sixteenths.
  static constexpr int kUntoldDuration = 2;

  /// 0..5, 0 the lowest-sounding string.
  int string() const { return read(m_string); }
  void setString(int value) { assign(m_string, value); }
  int fret() const { return read(m_fret); }
  void setFret(int value) { assign(m_fret, value); }
  /// As the creator passes it; the sounding note follows from string and fret.
  int note() const { return read(m_note); }
  void setNote(int value) { assign(m_note, value); }
  /// Amplitude on the scale of the spectrum.
  double amp() const { return read(m_amp); }
  void setAmp(double value) { assign(m_amp, value); }
  /// In sixteenths.
  int duration() const { return read(m_duration); }
  void setDuration(int value) { assign(m_duration, value); }
  bool hasDuration() const { return has(m_duration); }
  /// In a song on beats its exact length in ticks, of which it may have more than its chord.
  int ticks() const { return read(m_ticks); }
  void setTicks(int value) { assign(m_ticks, value); }
  bool hasTicks() const { return has(m_ticks); }
  /// Tones that a filter has silenced stay in the hold.
  bool active() const { return read(m_active); }
  void setActive(bool value) { assign(m_active, value); }
  /// Loudness layer, 1 the quietest.
  int group() const { return read(m_group); }
  void setGroup(int value) { assign(m_group, value); }
  bool hasGroup() const { return has(m_group); }
  const std::string& name() const { return read(m_name); }
  void setName(std::string value) { assign(m_name, std::move(value)); }
  QBHold* hold() const;
  void setHold(QBHold* value);

  void forgetCaches() override;

  QBTone* clone(QBHold* owner) const;
  bool isActive() const { return active(); }
  int dur() const { return duration(); }
  /// For how many chords it sounds, at least one; kUntoldDuration when its duration is 0.
  int soundingSteps() const;
  /// Whether it sounds that pitch class, 0..11.
  bool isNote(int note) const;
  /// Whether it sounds that absolute note.
  bool isLargeNote(int note) const;
  /// Same string and fret.
  bool equals(const QBTone& other) const;
  std::string toString() const;
  std::string toStringClean() const;

  // Scratch values of analysis and filters; never stored.
  double m_factor = 0.0;
  int m_hits = 0;

 private:
  platform::Attribute<int> m_string;
  platform::Attribute<int> m_fret;
  platform::Attribute<int> m_note;
  platform::Attribute<double> m_amp;
  platform::Attribute<int> m_duration;
  platform::Attribute<int> m_ticks;
  platform::Attribute<bool> m_active;
  platform::Attribute<int> m_group;
  platform::Attribute<std::string> m_name;
  platform::ToOne<QBHold> m_hold;
};

}  // namespace korvel
