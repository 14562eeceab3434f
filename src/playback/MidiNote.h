// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBTone;

/// The number of the MIDI note that a tone plays in the tuning of its song; the low E is 40.
int toMIDI(const QBTone& tone);

}  // namespace korvel
