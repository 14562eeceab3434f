// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class SongEditor;

// What a click on a fret or one key means, depending on what is there. Chords are counted from 0.

/// A finger that is there is lifted; otherwise the string is stopped at that fret.
void toggleFret(SongEditor& editor, int chord, int string, int fret);
/// Silences the tone of a string, or lets it sound again. Nothing on a string without a tone.
void toggleActive(SongEditor& editor, int chord, int string);

}  // namespace korvel
