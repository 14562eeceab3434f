// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBChord;
class QBTone;

/// The tones held in one chord: the left-hand grip.
///
/// Lookups by string and fret go through an index that only the hold's own operations keep in step:
/// after a fret was changed in place, the tone is still filed under its old fret.
class QBHold final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBHold();
  ~QBHold() override;

  QBChord* chord() const;
  void setChord(QBChord* value);
  platform::Members<QBTone> tones() const;

  void forgetCaches() override;

  /// The index: "string,fret" to tone, one tone for each pair.
  std::map<std::string, platform::Ref<QBTone>>& readSortedTones();
  QBTone* findTone(int string, int fret);
  QBTone* findToneByString(int string) const;
  std::vector<platform::Ref<QBTone>> allTonesOfString(int string) const;
  /// The first tone at frets fret..11.
  QBTone* findToneFrom(int string, int fret);

  /// Adds a tone, or answers the one that is there, unchanged.
  QBTone* addTone(int string, int fret, double amp);
  /// One tone for each string, the lowest fret wins. New tones are not indexed.
  QBTone* applyTone(int string, int fret, double amp);
  QBTone* setFretOfString(int string, int fret);
  void deleteTone(QBTone* tone);
  void deleteToneOfString(int string);
  /// Deletes every tone of the pitch class; true when there was one.
  bool removeTonesByNote(int note);

  bool findNote(int note) const;
  /// The notes that sound, bit n for pitch class n.
  unsigned pitchClasses() const;
  QBTone* findLargeNote(int note) const;
  /// The highest tone above the note 0, or whatever note the guitar has below it, and the lowest
  /// below 1000; the first of equals.
  QBTone* findMelodyTone() const;
  QBTone* findBrassTone() const;

  /// Frets from the lowest to the highest; 7, wider than any grip, for a single tone.
  int sizeOfHold() const;
  /// Pitch classes from string 0 to 5, each followed by a comma.
  std::string tonesAsString() const;
  /// Whether the other hold has every tone of this one.
  bool equals(QBHold& other);
  QBHold* clone(QBChord* chord);
  std::string toString() const;
  std::string toStringClean() const;
  /// Of the active tones, in sixteenths; 0 when there is none.
  int minimumDuration() const;
  int maximumDuration() const;
  /// No active tone.
  bool isEmpty() const;
  bool isBarre();
  bool isPlayable();

  /// Lowest fretted and highest fret that were added; not lowered when tones go.
  int m_minFret = 0;
  int m_maxFret = 0;

 private:
  platform::ToOne<QBChord> m_chord;
  platform::ToMany<QBTone> m_tones;

  enum class Barre { unknown, no, yes };
  std::optional<std::map<std::string, platform::Ref<QBTone>>> m_sortedTones;
  Barre m_isBarre = Barre::unknown;
};

}  // namespace korvel
