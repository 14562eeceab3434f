// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>

namespace korvel {

/// A place in a tablature: a chord, counted from 0, and a string, 0 the lowest-sounding one. Moves
/// stop at the ends. In a song without chords it stays at chord 0, and `isOnChord` tells.
class TabCursor {
 public:
  using Clock = std::chrono::steady_clock;

  /// How many chords the song has now; the cursor stays within them.
  void setChordCount(int count);
  bool isOnChord() const { return m_chord < m_count; }
  int chord() const { return m_chord; }
  int string() const { return m_string; }

  void moveTo(int chord, int string);
  void left() { moveTo(m_chord - 1, m_string); }
  void right() { moveTo(m_chord + 1, m_string); }
  /// To the next higher string, which is drawn above.
  void up() { moveTo(m_chord, m_string + 1); }
  void down() { moveTo(m_chord, m_string - 1); }
  void home() { moveTo(0, m_string); }
  void end() { moveTo(m_count - 1, m_string); }

  /// The fret that is meant when a digit is typed: with the one before it a number, if that was
  /// typed here within a second and there is such a fret.
  int typeDigit(int digit, Clock::time_point when);

 private:
  struct Typed {
    int digit;
    Clock::time_point when;
  };

  int m_count = 0;
  int m_chord = 0;
  int m_string = 0;
  std::optional<Typed> m_typed;
};

}  // namespace korvel
