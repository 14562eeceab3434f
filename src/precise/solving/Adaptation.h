// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "precise/judging/Candidate.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/CoefficientTable.h"
#include "precise/solving/Dictionary.h"
#include "precise/solving/WeightedRows.h"

namespace korvel::precise {

/// Learns how the instrument of a recording sounds from notes that were found in it: what of the
/// spectrum belongs to each becomes an atom for its pitch and, less surely, for its neighbours.
/// One for the attack, one for what follows.
class Adaptation {
 public:
  /// What was learnt from one part, attack or rest, of the notes of one pitch.
  struct Learnt {
    BinRow sum{};
    float weight = 0;
  };
  /// One part of the notes of all pitches.
  using Part = std::array<Learnt, kPitches>;
  /// What is known of an instrument.
  struct Sound {
    Part attacks{};
    Part sustains{};
  };

  /// What the notes were found from: the spectra, the dictionary, and the coefficients of every
  /// `step`-th frame. All must outlive this.
  Adaptation(const FrameTable& spectra, const Dictionary& dictionary,
             const CoefficientTable& coefficients, std::size_t step);

  /// share: the note's peak in relation to that of the loudest pitch, 0..1.
  void learn(const Candidate& note, float share);

  /// Goes on from what was learnt of earlier windows of a long recording; before anything is
  /// learnt.
  void recall(const Sound& sound) { m_sound = sound; }
  const Sound& sound() const { return m_sound; }

  /// The atoms that were learnt, followed by those for strings in general, which cost more.
  Dictionary dictionary() const;

 private:
  void learn(const Candidate& note, Frame first, Frame end, float weight, Part& part);
  void addOwned(std::size_t pitch, std::size_t frame, BinRow& sum);
  static void addAtoms(const Part& part, Dictionary& dictionary);

  const FrameTable& m_spectra;
  const Dictionary& m_dictionary;
  const CoefficientTable& m_coefficients;
  Frame m_step;
  Sound m_sound;
  WeightedRows m_modelRows;
  WeightedRows m_ownRows;
};

}  // namespace korvel::precise
