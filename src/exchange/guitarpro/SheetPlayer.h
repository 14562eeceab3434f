// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "exchange/guitarpro/TabSheet.h"

namespace korvel::exchange::guitarpro {

/// A tablature as it is played: repeats and endings one after the other, ties joined. A bar is as
/// long as its time signature says; what stands beyond is left out. Throws a UserError where that
/// is more than any music.
Piece playedOut(TabSheet sheet);

}  // namespace korvel::exchange::guitarpro
