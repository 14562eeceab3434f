// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBTone;

using Tones = std::vector<platform::Ref<QBTone>>;

// The tones of a chord as the hold has them now, active or not; never the chord's cache, so that a
// filter sees what the one before it did. Equal tones keep the hold's order. None without a hold.

Tones tonesOf(const QBChord& chord);
Tones loudestFirst(const QBChord& chord);
Tones highestFirst(const QBChord& chord);
Tones lowestFirst(const QBChord& chord);
/// By string, then by fret, both ascending.
Tones byStringAndFret(const QBChord& chord);

/// The absolute note that a tone sounds in the tuning of its song.
int largeToneOf(const QBTone& tone);

/// Deletes tones of the chord from its hold and from the store.
void deleteTones(const QBChord& chord, std::span<const platform::Ref<QBTone>> tones);

}  // namespace korvel
