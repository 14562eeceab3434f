// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "export/MidiFile.h"

namespace korvel {

class QBSong;
struct BeatSheet;

/// A song as it is played. The time signature is that of its measures unless another is given.
///
/// A song on beats has the tempo of each beat when it is played as recorded, one tempo otherwise;
/// tones are where swing has them and sound for their own ticks. What lies before the first bar
/// line is a bar of its own, as long as in a score.
///
/// In a song of slices every chord is a step after the one before, the empty ones too, and tones
/// sound for their own duration, but a little shorter. A step is a sixteenth, so that the grid of
/// another program is that of the recording.
MidiSequence midiOf(QBSong& song, const std::optional<Meter>& meter = std::nullopt);
/// The same of the sheet of a song on beats. head: what its score says beside the music.
MidiSequence midiOf(const Score& head, const BeatSheet& sheet,
                    const std::optional<Meter>& meter = std::nullopt);

}  // namespace korvel
