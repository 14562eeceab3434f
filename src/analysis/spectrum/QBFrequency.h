// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "matrix/QBFloatMatrix.h"

namespace korvel {

class QBTone;
class QBTuning;

/// Columns of a matrix of positions on the neck; column 0 is unused.
inline constexpr int kFretColumn = 1;
inline constexpr int kStringColumn = 2;

/// One tone that was heard in a block, with the place on the neck that plays it.
class QBFrequency {
 public:
  /// Looks the place up in the tuning; without one there is none.
  QBFrequency(float f, double amp, QBTuning* tuning);

  /// Nominal frequency of the tone in Hz, not the measured one.
  float frequency() const { return m_f; }
  /// Magnitude of its bin.
  double amplitude() const { return m_amp; }
  int tone() const { return m_tone; }
  int fret() const { return m_fret; }
  int string() const { return m_string; }
  /// Position matrix, by kFretColumn and kStringColumn; null when no place plays it.
  const QBFloatMatrix* matrix() const { return m_matrix ? &*m_matrix : nullptr; }
  /// Whether the guitar can play it.
  bool isGuitar() const { return m_matrix.has_value(); }
  /// Whether one of its places is that of the tone.
  bool equalsTone(const QBTone& tone) const;
  /// The open string's absolute note plus 16 in standard tuning; 0 for another than strings 0..5.
  static int stepByString(int string);

  /// Whether the other tone lies that many semitones above this one, or the rest of an octave
  /// above it, within half a semitone.
  bool isInterval(int semitones, const QBFrequency& other) const;
  /// As isInterval, but also any octaves further up or down.
  bool isIntervalOld(int semitones, const QBFrequency& other) const;
  /// Also true for a unison.
  bool isOctaveOf(const QBFrequency& other) const { return isInterval(12, other); }
  bool isMajSeptimeOf(const QBFrequency& other) const { return isInterval(11, other); }
  bool isSexteOf(const QBFrequency& other) const { return isInterval(9, other); }
  bool isQuintOf(const QBFrequency& other) const { return isInterval(7, other); }
  bool isQuartOf(const QBFrequency& other) const { return isInterval(5, other); }
  bool isTerzOf(const QBFrequency& other) const { return isInterval(4, other); }
  bool isSmallTerzOf(const QBFrequency& other) const { return isInterval(3, other); }
  bool isSekundeOf(const QBFrequency& other) const { return isInterval(2, other); }

  // For callers; the analysis reads places from the matrix and sets none of these.
  int m_tone = 0;
  int m_fret = 0;
  int m_string = 0;
  int m_order = 0;
  int m_valid = 0;

 private:
  float m_f;
  double m_amp;
  std::optional<QBFloatMatrix> m_matrix;
};

}  // namespace korvel
