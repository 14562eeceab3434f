// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "export/score/NoteValues.h"

namespace korvel::exchange::guitarpro {

/// A sign of a voice and how many of a kind its group has, in two thirds of their time: 3, 6 or 12;
/// 0 outside of groups.
struct NumberedSign {
  ScoreNote sign;
  int tuplet = 0;
};

/// The signs of a voice of a bar. Some programs take a group to be full once it has as many of its
/// last sign as it is to have, and go on with it in the next one otherwise: a group that another
/// one follows ends with its shortest sign, of which it has so many. The signs must outlive the
/// result.
std::vector<NumberedSign> numberedSigns(std::span<const ScoreNote> signs);

}  // namespace korvel::exchange::guitarpro
