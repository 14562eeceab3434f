// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBRightHandPattern;
class QBTabMgr;

// With which of the store's right-hand patterns a chord is struck.

/// The heaviest pattern that the chord can be struck with, of equals the first, or none. The
/// previous chord, if any, keeps the pattern that is read of it.
QBRightHandPattern* findPatternByChord(const QBTabMgr& db, QBChord* previous, const QBChord& chord);

/// The chord's pattern, chosen after the previous chord, if any, from the shared store and kept
/// when absent.
QBRightHandPattern* readPattern(QBChord& chord, QBChord* previous);

}  // namespace korvel
