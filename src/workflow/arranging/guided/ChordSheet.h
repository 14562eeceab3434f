// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "arrange/harmony/ChordName.h"

namespace korvel {

class QBChord;
class QBSong;

/// The chords that a song is accompanied with, as somebody who strums it thinks of them. A copy:
/// later changes of the song do not reach it.
///
/// A chord of the song that has no name, or of which one or two tones of the chord before it are
/// heard, goes on with that one: a melody over a chord does not change it. What comes before the
/// first name is of that.
class ChordSheet {
 public:
  using Step = std::optional<ChordName>;

  /// plain: major and minor, without sevenths and all above; where the third is not heard, the one
  /// that the song has on that root most often.
  ChordSheet(QBSong& song, bool plain);

  /// One for each of the song's `allChords`; none where nothing sounds.
  const std::vector<Step>& steps() const { return m_steps; }
  /// No chord of the song has a name.
  bool isEmpty() const { return m_isEmpty; }
  /// Throws EditRefused then.
  void requireNames(const QBSong& song) const;

 private:
  void countThirds(QBSong& song);
  void addStep(const QBChord& chord);
  Step nextFor(const QBChord& chord) const;
  ChordName plainOf(const ChordName& name) const;
  void nameBeginning();

  bool m_plain;
  bool m_isEmpty = true;
  ChordName m_major;  ///< On C.
  ChordName m_minor;
  std::array<int, 12> m_thirds{};  ///< Of each root: how many major ones more than minor ones.
  Step m_current;
  std::vector<Step> m_steps;
  std::vector<std::size_t> m_unnamed;  ///< Steps that sound before the first name.
};

}  // namespace korvel
