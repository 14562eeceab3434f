// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "arrange/hands/TonePlaces.h"
#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"

namespace korvel {

class QBSong;

/// Where a chord that is marked (`QBChord::handFret`) says that the hand is.
fingering::Position handOf(const QBChord& chord);

/// The tones of a song that sound, as notes for a hand: each with its string and fret, in seconds
/// of the song at an even tempo. Those of a chord follow one another by rising pitch. Computed
/// once: not to be kept while chords come and go.
class PlayedNotes {
 public:
  explicit PlayedNotes(QBSong& song);

  std::size_t chords() const { return m_chords.size(); }
  std::span<const fingering::Note> all() const { return m_notes; }
  std::span<const fingering::Note> ofChord(std::size_t chord) const;
  /// Of its first note among all.
  std::size_t firstOf(std::size_t chord) const { return m_chords[chord].first; }
  /// When it begins, with notes or without.
  double onsetOf(std::size_t chord) const { return m_chords[chord].onset; }

  /// Where the hand is said to be, by the chords that are marked.
  std::vector<fingering::PositionMark> hands() const;

  /// The open strings, without the capo.
  const OpenPitches& open() const { return m_open; }
  /// As many frets as the song needs, and its capo when nothing lies below that.
  const fingering::FingeringOptions& options() const { return m_options; }

  /// Gives the tones of a chord the places of as many notes as it has, and tells whether anything
  /// changed. Nothing does when one of them has no place, or two have one string. A silent tone
  /// goes when its string is taken.
  bool move(std::size_t chord, std::span<const fingering::Note> placed) const;
  /// The same for other open strings: a tone that has no place goes, or one of two that have one
  /// string. Silent tones stay on their strings where these have them and are free. Answers how
  /// many that sounded went.
  int moveOrDrop(std::size_t chord, std::span<const fingering::Note> placed,
                 const OpenPitches& open) const;

 private:
  struct Chord {
    platform::Ref<QBChord> chord;
    Tones tones;
    std::vector<std::size_t> played;  ///< Those that sound, by rising pitch.
    std::size_t first = 0;            ///< In m_notes.
    double onset = 0;
  };

  void read(QBSong& song);
  void readTones(Chord& chord);
  void findOptions(QBSong& song);

  OpenPitches m_open;
  fingering::FingeringOptions m_options;
  std::vector<fingering::Note> m_notes;
  std::vector<Chord> m_chords;
};

}  // namespace korvel
