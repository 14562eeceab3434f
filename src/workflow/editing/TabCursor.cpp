// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/TabCursor.h"

#include <algorithm>

#include "music/Neck.h"
#include "workflow/editing/SongEditor.h"

namespace korvel {
namespace {

constexpr std::chrono::seconds kTimeForNumber{1};

}  // namespace

void TabCursor::setChordCount(int count) {
  m_count = std::max(count, 0);
  if (m_chord >= m_count) moveTo(m_chord, m_string);
}

void TabCursor::moveTo(int chord, int string) {
  m_chord = std::clamp(chord, 0, std::max(m_count - 1, 0));
  m_string = std::clamp(string, 0, kStrings - 1);
  m_typed.reset();
}

int TabCursor::typeDigit(int digit, Clock::time_point when) {
  const auto before = std::exchange(m_typed, Typed{digit, when});
  if (!before || when - before->when > kTimeForNumber) return digit;
  const int number = 10 * before->digit + digit;
  if (number > SongEditor::kHighestFret) return digit;
  m_typed.reset();  // a third digit begins anew
  return number;
}

}  // namespace korvel
