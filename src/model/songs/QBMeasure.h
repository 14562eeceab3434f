// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBChord;
class QBSong;

/// One bar of a song, `beat` / `beattype` long.
class QBMeasure final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  /// 1-based place in the song.
  int position() const { return read(m_position); }
  void setPosition(int value) { assign(m_position, value); }
  /// Numerator of the time signature.
  int beat() const { return read(m_beat); }
  void setBeat(int value) { assign(m_beat, value); }
  /// Denominator of the time signature.
  int beattype() const { return read(m_beattype); }
  void setBeattype(int value) { assign(m_beattype, value); }
  QBSong* song() const;
  void setSong(QBSong* value);
  /// In creation order; `allChords` is in order of position.
  platform::Members<QBChord> chords() const;

  std::vector<platform::Ref<QBChord>> allChords() const;
  /// Sum of the chords' durations, in sixteenths.
  int durationValue() const;
  /// Whether a chord of that duration still fits. beattype must not be 0: std::domain_error.
  bool fitsIn(int duration) const;
  void addChord(QBChord* chord);
  /// How many chords from index on are drawn as a group, by eighths or by quarters.
  int lookupGroupSize(int index) const;
  int lookupGroupSizeAchtel(int index) const;
  int lookupGroupSizeViertel(int index) const;

  /// Sixteenths drawn so far.
  int m_counter = 0;

 private:
  platform::Attribute<int> m_position;
  platform::Attribute<int> m_beat;
  platform::Attribute<int> m_beattype;
  platform::ToOne<QBSong> m_song;
  platform::ToMany<QBChord> m_chords;
};

}  // namespace korvel
