// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "music/Neck.h"

namespace korvel {

class QBTabMgr;
class QBTuning;

/// The tuning of these open strings: the selected one if it is that, another that the user has, or
/// a new one that is called as guitarists call it, or by its notes. Any six pitches make one.
QBTuning* tuningFor(QBTabMgr& db, const OpenPitches& open);

}  // namespace korvel
