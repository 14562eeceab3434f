// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// A run of the same fret on one string over several chords.
class QBToneGroup {
 public:
  QBToneGroup(int string, int position, int fret)
      : m_string(string), m_pos(position), m_fret(fret) {}

  /// Answers the new length.
  int increaseDur() { return ++m_dur; }

  int m_string;
  int m_pos;  ///< Index of the first chord.
  int m_fret;
  int m_dur = 1;  ///< Length in chords.
};

}  // namespace korvel
