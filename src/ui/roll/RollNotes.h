// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "workflow/playing/RecordedTime.h"
#include "workflow/playing/ToneRoll.h"

namespace korvel {
class QBSong;
class SongNotes;
}  // namespace korvel

namespace korvel::ui {

/// What is known of the tones of a roll beside how they are written, and what may be tones, too.
struct RollNotes {
  static constexpr int kNone = -1;

  /// Of a tone.
  struct Sign {
    int note = kNone;       ///< Of the song's notes, when it was heard.
    float probability = 1;  ///< That it is one.
    bool isLocked = false;  ///< The user decided about it, or changed it.
  };

  /// What was heard and not taken for a note.
  struct Candidate {
    int note;
    int chord;  ///< During which it would be struck.
    double from;
    double steps;
    int pitch;
    float probability;
    bool isLocked;  ///< The user dropped it.
  };

  /// As the song is now. notes: the song's.
  static RollNotes of(QBSong& song, const SongNotes& notes, const ToneRoll& roll,
                      const RecordedTime& time);

  std::vector<Sign> signs{};            ///< By the indexes of the roll's tones.
  std::vector<Candidate> candidates{};  ///< By time.
};

}  // namespace korvel::ui
