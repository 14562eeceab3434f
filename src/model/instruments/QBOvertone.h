// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBSpectrum;

/// A position that was heard while a string was played.
class QBOvertone final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  int string() const { return read(m_string); }
  void setString(int value) { assign(m_string, value); }
  /// Relative to the open string.
  int fret() const { return read(m_fret); }
  void setFret(int value) { assign(m_fret, value); }
  int note() const { return read(m_note); }
  void setNote(int value) { assign(m_note, value); }
  /// Distance from the played tone, in semitones.
  int offset() const { return read(m_offset); }
  void setOffset(int value) { assign(m_offset, value); }
  /// How often it was heard.
  int hits() const { return read(m_hits); }
  void setHits(int value) { assign(m_hits, value); }
  double frequency() const { return read(m_frequency); }
  void setFrequency(double value) { assign(m_frequency, value); }
  double amp() const { return read(m_amp); }
  void setAmp(double value) { assign(m_amp, value); }
  QBSpectrum* spectrum() const;
  void setSpectrum(QBSpectrum* value);
  void forgetCaches() override;

  /// Whether it is that position.
  bool equals(int string, int fret) const;
  /// Answers the new count.
  int increaseHits();
  int offsetAsInt() const { return offset(); }
  void setOffsetAsInt(int value) { setOffset(value); }

 private:
  platform::Attribute<int> m_string;
  platform::Attribute<int> m_fret;
  platform::Attribute<int> m_note;
  platform::Attribute<int> m_offset;
  platform::Attribute<int> m_hits;
  platform::Attribute<double> m_frequency;
  platform::Attribute<double> m_amp;
  platform::ToOne<QBSpectrum> m_spectrum;
};

}  // namespace korvel
