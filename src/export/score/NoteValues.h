// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "export/score/Score.h"

namespace korvel {

/// A length that one note sign stands for.
struct NoteValue {
  int sixteenths;
  const char* type;  ///< Of the sign without its dot: "16th" to "whole".
  bool dotted;
};

/// A part of an event that is written as one sign; the parts of an event are tied.
struct ScoreNote {
  const ScoreEvent* event;
  const NoteValue* value;
  bool first;
  bool last;
};

/// A bar with the signs that fill it exactly.
struct WrittenBar {
  Meter meter;
  std::vector<ScoreNote> notes;
};

/// Events as they stand in bars: split where a bar ends and where no single sign would show the
/// beats, with rests at the end of a passage. The events must outlive the result. Always at least
/// one bar.
std::vector<WrittenBar> writtenBars(const Score& score);

}  // namespace korvel
