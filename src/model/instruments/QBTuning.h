// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "music/OpenStrings.h"
#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBInstrument;
class QBSong;
class QBString;

/// A named set of six open strings.
///
/// The order of the strings, what they sound and the short name are computed once; strings added
/// later are not seen.
class QBTuning final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBTuning();
  ~QBTuning() override;

  /// Display name, such as "Standard".
  const std::string& descr() const { return read(m_descr); }
  void setDescr(std::string value) { assign(m_descr, std::move(value)); }
  /// Identifier for lookups.
  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  /// Kept in step with the settings' active tuning.
  bool selected() const { return read(m_selected); }
  void setSelected(bool value) { assign(m_selected, value); }
  platform::Members<QBString> strings() const;
  platform::Members<QBSong> songs() const;
  platform::Members<QBInstrument> instruments() const;

  void forgetCaches() override;

  const std::vector<platform::Ref<QBString>>& allTones();
  /// std::out_of_range for a position beyond the strings.
  QBString* findStringByPosition(int position);
  float computeFrequency(int position, int fret);
  /// Half the way to the neighbouring semitone, in hertz.
  float computeLowerDistance(int position, int fret);
  float computeUpperDistance(int position, int fret);
  /// Whether the frequency lies within half a semitone of the open string.
  bool isBaseTone(int position, float frequency);
  bool isOpenLowerE(float frequency) { return isBaseTone(0, frequency); }
  bool isOpenA(float frequency) { return isBaseTone(1, frequency); }
  bool isOpenD(float frequency) { return isBaseTone(2, frequency); }
  bool isOpenG(float frequency) { return isBaseTone(3, frequency); }
  bool isOpenB(float frequency) { return isBaseTone(4, frequency); }
  bool isOpenUpperE(float frequency) { return isBaseTone(5, frequency); }
  /// The string on which the frequency is played lowest; the highest string beyond both ends.
  QBString* findStringByFrequency(float frequency);
  /// What its strings sound, to the nearest half tone of their frequencies: all that is heard, read
  /// or arranged counts by it. A string that it lacks is as in standard tuning.
  const OpenStrings& openStrings();
  /// As `QBString` has them: of these notes only the lowest string's follows the tuning.
  int largeToneOfString(int position);
  int noteOfString(int position);
  bool isSelected() const { return selected(); }
  /// Names of the open strings' notes, highest first, such as "Eb" or "B".
  std::vector<std::string> stringNames();
  /// The same in one word, such as EBGDAE.
  const std::string& toString();

  void createStandardStrings();
  void createDropDStrings();
  void createOpenGStrings();

 private:
  platform::Attribute<std::string> m_descr;
  platform::Attribute<int> m_order;
  platform::Attribute<bool> m_selected;
  platform::ToMany<QBString> m_strings;
  platform::ToMany<QBSong> m_songs;
  platform::ToMany<QBInstrument> m_instruments;

  std::optional<std::vector<platform::Ref<QBString>>> sortedTones;
  std::optional<OpenStrings> m_openStrings;
  std::optional<std::string> m_tuneStr;
};

}  // namespace korvel
