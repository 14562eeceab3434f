// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>

#include "music/OpenStrings.h"
#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBInstrument;
class QBOvertone;
class QBString;

/// What is heard when one string of an instrument sounds: its overtones.
class QBSpectrum final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBSpectrum();
  ~QBSpectrum() override;

  bool calibrated() const { return read(m_calibrated); }
  void setCalibrated(bool value) { assign(m_calibrated, value); }
  QBInstrument* instrument() const;
  void setInstrument(QBInstrument* value);
  QBString* string() const;
  void setString(QBString* value);
  platform::Members<QBOvertone> overtones() const;

  void forgetCaches() override;

  /// The overtones by "string,fret", the last of each pair. Filled on first use; overtones that are
  /// added or deleted here renew it, others are not seen.
  const std::map<std::string, platform::Ref<QBOvertone>>& readSortedTones();
  QBOvertone* findOvertone(int string, int fret);
  QBOvertone* addOvertone(int string, int fret, int note, int offset, double frequency, double amp);
  void deleteOvertone(QBOvertone* overtone);
  /// Deletes the overtones that were heard fewer than three times.
  void cleanupTones();
  void defineAsCalibrated() { setCalibrated(true); }
  bool isCalibrated() const { return calibrated(); }
  /// Gives every overtone its distance from the open string, on a guitar with these strings. An
  /// overtone on no string of it keeps the one that it has.
  void computeOffsets(const OpenStrings& strings);

 private:
  platform::Attribute<bool> m_calibrated;
  platform::ToOne<QBInstrument> m_instrument;
  platform::ToOne<QBString> m_string;
  platform::ToMany<QBOvertone> m_overtones;

  std::optional<std::map<std::string, platform::Ref<QBOvertone>>> m_sorted;
};

}  // namespace korvel
