// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBHarmony;
class QBTabMgr;

// Which of the store's harmonies (chord types) names a chord.

/// Sets the chord's harmony and root to the best explanation of at least two of its tones, and
/// answers the harmony. One found earlier is never cleared.
QBHarmony* findHarmonyByChord(const QBTabMgr& db, QBChord& chord);

/// The same among the harmonies of the shared store.
QBHarmony* readHarmony(QBChord& chord);

}  // namespace korvel
