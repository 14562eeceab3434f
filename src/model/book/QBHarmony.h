// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBChord;
class QBToneOfHarmony;

/// A declared chord type: a name and cumulative interval steps above a root.
class QBHarmony final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBHarmony();
  ~QBHarmony() override;

  /// Suffix after the root, such as "m7".
  const std::string& type() const { return read(m_type); }
  void setType(std::string value) { assign(m_type, std::move(value)); }
  /// Priority; smaller wins among equals.
  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  platform::Members<QBToneOfHarmony> tones() const;
  platform::Members<QBChord> chords() const;

  void forgetCaches() override;

  /// Appends an interval, in semitones above the tone before it.
  void addStep(int order, int step);
  /// In order; computed once.
  const std::vector<platform::Ref<QBToneOfHarmony>>& allTones();
  /// How many tones of the harmony on that root the chord has.
  int isPartOfChord(int base, const QBChord& chord);
  /// The same for a set of pitch classes, bit n for note n.
  int countTones(int base, unsigned pitchClasses);
  /// Whether the harmony on that root has the pitch class.
  bool includesNote(int base, int note);

  /// "C", "C#", "D", "Eb" ... "B" for 0..11; none for any other note.
  static std::optional<std::string> noteAsString(int note);
  /// Note of an open string in the selected tuning.
  static int toneOfString(int string);

 private:
  /// The tones above the root as sets, bit n for n semitones; one that recurs is in a further set.
  /// Computed once, since every chord that is made asks all harmonies on all roots.
  const std::vector<unsigned>& intervals();

  platform::Attribute<std::string> m_type;
  platform::Attribute<int> m_order;
  platform::ToMany<QBToneOfHarmony> m_tones;
  platform::ToMany<QBChord> m_chords;

  std::optional<std::vector<platform::Ref<QBToneOfHarmony>>> m_sortedTones;
  std::optional<std::vector<unsigned>> m_intervals;
};

}  // namespace korvel
