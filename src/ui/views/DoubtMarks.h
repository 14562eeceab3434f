// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <map>

namespace korvel::ui {

/// What is doubted of a chord.
struct DoubtMark {
  unsigned strings = 0;  ///< Whose tones may be wrong, bit n for string n, 0 the lowest.
  QString words;         ///< What may be wrong, for screen readers and tool tips.
};

/// By the indexes of the chords.
using DoubtMarks = std::map<int, DoubtMark>;

}  // namespace korvel::ui
