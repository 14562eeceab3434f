// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rhythm/Reading.h"
#include "tab/page/PageSource.h"

namespace korvel {

/// The chords of a recording that was only heard, in the bars of its reading; without a title.
PageSource pageSourceOf(const rhythm::Reading& reading);

}  // namespace korvel
