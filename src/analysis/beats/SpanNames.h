// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBHarmony;
class QBTabMgr;

/// For each chord of the reading the pitch classes that sound for a good part of it, bit n for
/// pitch class n; passing notes are not among them.
std::vector<unsigned> pitchClassesOfSpans(std::span<const fingering::Note> notes,
                                          const rhythm::Reading& reading);

/// As the chord book calls it: "m7".
std::string_view typeOf(rhythm::Quality quality);

/// The harmony of the chord book that a span is called by: the one on its root that has just these
/// pitch classes, such as sus4, else the one of its quality. None when the book lacks that.
QBHarmony* harmonyOf(const QBTabMgr& db, const rhythm::ChordSpan& span, unsigned pitchClasses);

}  // namespace korvel
