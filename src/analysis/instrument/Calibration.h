// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "music/Neck.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBInstrument;
class QBSpectrum;
class QBTabMgr;
class QBTuning;

/// A tone that the classic detection hears in a block.
struct HeardTone {
  int midi;
  double amp;
};

/// Measures an instrument on single notes: which positions the classic detection hears beside the
/// tone that is played, in how many blocks and how loud.
///
/// A recording does not tell on which string its note was played, so it counts for every string
/// that reaches the note with its open string or frets 1 to 12. Positions are entered for the open
/// string: what is heard while fret k is stopped lies k semitones lower there. It is for one
/// tuning.
class Calibration {
 public:
  /// Values that were chosen by how well the detection does with them.
  static constexpr float kDetailLevel = 0.85F;
  static constexpr double kSmallestShare = 0.2;

  explicit Calibration(QBTuning& tuning);
  ~Calibration();

  /// Whether the tuning is the standard one but for its lowest string: with other strings a guitar
  /// sounds different, and its instrument would be of use for that tuning alone.
  static bool canMeasure(QBTuning& tuning);
  /// What the detection hears in up to 16384 samples. Tones that no place on the neck plays are
  /// left out.
  std::vector<HeardTone> tonesIn(std::span<const std::int16_t> samples) const;
  /// Whether a string reaches the note, a MIDI number.
  bool isReached(int midi) const;

  /// Counts a block in which the note sounds.
  void addBlock(std::span<const HeardTone> tones, int midi);
  /// Strings that did not sound in enough blocks yet.
  std::vector<int> unknownStrings() const;
  QBTuning* tuning() const;

  /// Makes the instrument, which is not the active one, in a store. A position stays when
  /// it was heard in at least that share of the blocks in which its string sounded, and at least
  /// three times. The detail level is the share of a string's hits that a tone must find to be
  /// kept. Every string must be known.
  QBInstrument& createInstrument(QBTabMgr& db, const std::string& name, float detailLevel,
                                 double smallestShare) const;

 private:
  struct Overtone {
    int hits = 0;
    double amp = 0;
  };
  struct String {
    int blocks = 0;                     ///< In which it sounded.
    std::map<int, Overtone> overtones;  ///< By semitones above the string's note.
  };

  void fill(QBSpectrum& spectrum, int string, double smallestShare) const;

  platform::Ref<QBTuning> m_tuning;
  std::array<String, kStrings> m_strings;
};

}  // namespace korvel
