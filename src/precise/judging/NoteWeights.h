// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "precise/judging/Networks.h"
#include "precise/judging/Tables.h"

namespace korvel::precise {

/// Networks that correct the odds of the formula for notes in company. They are shown what that
/// knows, but for the constant.
using NoteWeights = Networks<static_cast<std::size_t>(NoteFeature::Count) - 1, 3>;
const NoteWeights& noteWeights();

}  // namespace korvel::precise
