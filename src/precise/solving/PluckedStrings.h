// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/solving/Dictionary.h"

namespace korvel::precise {

/// Spectra of strings in general, for the first look at a recording: every pitch with overtones
/// that fall off slowly to steeply, seen through the front end. Four atoms a pitch, no penalty.
/// Computed on first use.
const Dictionary& pluckedStrings();

}  // namespace korvel::precise
