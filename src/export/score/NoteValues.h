// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "export/score/Score.h"

namespace korvel {

/// A length that one note sign stands for.
struct NoteValue {
  int units;         ///< As it sounds, in a triplet two thirds of what the sign says.
  const char* type;  ///< Of the sign without its dot: "64th" to "whole".
  bool dotted;
};

/// A part of an event that is written as one sign; the parts of an event are tied.
struct ScoreNote {
  const ScoreEvent* event;
  const NoteValue* value;
  bool first;
  bool last;
  /// The sign that its group of triplets has three of, such as "eighth"; null outside of one.
  const char* tripletOf = nullptr;
  bool opensTriplet = false;
  bool closesTriplet = false;
};

/// A bar with the signs that fill it exactly in each voice.
struct WrittenBar {
  Meter meter;
  std::vector<ScoreNote> notes;
  std::vector<ScoreNote> lower{};  ///< Of the second voice; empty when it is silent.
  int pickUp = 0;                  ///< Length of a bar that is not whole, at the beginning.
  std::optional<double> tempo{};   ///< Quarters a minute, when it is another from here on.
};

/// Events as they stand in bars: split where a bar ends and where no single sign would show the
/// beats, with rests at the end of a passage. What does not lie on thirty-seconds is in triplets.
/// The events must outlive the result. Always at least one bar.
std::vector<WrittenBar> writtenBars(const Score& score);

}  // namespace korvel
