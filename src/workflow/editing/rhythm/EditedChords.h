// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/editing/CopiedChord.h"

namespace korvel {

class QBChord;
class QBHarmony;
class QBRightHandPattern;
class QBSong;

/// The chords that the user changed of a song, to be put into another one of the same recording, or
/// into itself when it has been read anew. Each stays at its time: the chord that is nearest there
/// gets its tones and its name and, in a song on beats, its length up to the end of the bar.
class EditedChords {
 public:
  /// Of the song as it is.
  explicit EditedChords(QBSong& song);
  ~EditedChords();

  bool empty() const { return m_kept.empty(); }
  /// Once.
  void putInto(QBSong& song);

 private:
  struct Kept {
    double seconds;
    double length;  ///< Likewise; 0 when it was not on beats.
    CopiedChord chord;
    platform::Ref<QBHarmony> harmony;
    std::optional<int> baseTone;
    platform::Ref<QBRightHandPattern> pattern;
    platform::Ref<QBChord> target{};
  };

  void findTargets(QBSong& song);
  static void fill(const Kept& kept);
  void setLengths(QBSong& song) const;
  static void setLength(QBSong& song, const Kept& kept, int wished);

  std::vector<Kept> m_kept;  ///< By time.
};

/// When a chord was struck or is written, in seconds of the recording; none for one that was made
/// without it.
std::optional<double> recordedSecondsOf(const QBChord& chord);

}  // namespace korvel
