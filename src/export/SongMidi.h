// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "export/MidiFile.h"

namespace korvel {

class QBSong;

/// A song as it is played: every chord a step after the one before, the empty ones too, and tones
/// that sound for their own duration, but a little shorter. A step is a sixteenth, so that the
/// grid of another program is that of the recording. The time signature is that of the first
/// measure unless another is given.
MidiSequence midiOf(QBSong& song, const std::optional<Meter>& meter = std::nullopt);

}  // namespace korvel
