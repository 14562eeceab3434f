// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"

namespace korvel::fingering {

class Events;
class HandChain;

/// Chooses the strings on which a guitarist would play the notes of a recording: at each event the
/// grip that is most probable, given all that comes before and after it, by weights that were
/// fitted to how players of the guitar do it. The same notes always get the same fingering. Time
/// and memory grow with the number of notes.
class Fingering {
 public:
  /// Any six pitches make a tuning. Expects at most 24 frets and the capo on one of them.
  Fingering(const OpenPitches& open, const FingeringOptions& options);

  /// Sets string and fret of each note, in whatever order the notes come. Frets count from the nut,
  /// with a capo too, so that a note's pitch is its open string's plus its fret. A string sounds
  /// one note at a time: where the next one starts, the end of a note is brought forward to it.
  /// A pitch that the guitar has not gets -1 for both. So does what is left without a string unless
  /// one near the hand is silent: the weakest of more than six notes that start together, and a
  /// doubtful note that no hand could play with the rest of its chord, that may be an overtone of a
  /// surer one, or that would cut off a surer one which was struck just before it.
  ///
  /// What is settled stays: those notes keep their strings, and the rest is chosen around them.
  void place(std::span<Note> notes, const Settled& settled = {}) const {
    placing(notes, settled).finish();
  }
  /// The same, a little at a time; the notes have to stay where they are meanwhile.
  platform::Slices placing(std::span<Note> notes, Settled settled = {}) const;

 private:
  Settled fromTheCapo(Settled settled) const;
  void assign(const Events& events, const HandChain& chain, const Settled& settled,
              std::span<Note> notes) const;
  void placeWhatIsLeft(const Settled& settled, std::span<Note> notes) const;

  OpenPitches m_open;  ///< The open strings with the capo on.
  int m_frets = 0;     ///< Frets above the capo.
  int m_capo = 0;
  Position m_expected;
};

}  // namespace korvel::fingering
