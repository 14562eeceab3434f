// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rhythm/Reading.h"

namespace korvel {

class QBSong;

/// Whether a song on beats is in another metre than its recording was read in: an arrangement laid
/// it so, or another song of the same recording was read anew.
bool isLaidOtherwise(QBSong& song, const rhythm::Reading& reading);

/// Beats, metre and first bar line as that song has them, in place of the reading's. EditRefused
/// for a metre that nothing is read in.
void readAsLaid(QBSong& song, rhythm::Reading& reading);

/// Wishes that keep what `readAsLaid` says. What was said of beats goes when those of the
/// recording's reading are others.
void wishAsLaid(const rhythm::Reading& laid, const rhythm::Reading& recorded,
                rhythm::Wishes& wishes);

}  // namespace korvel
