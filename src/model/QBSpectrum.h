// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBInstrument;
class QBOvertone;
class QBString;

/// What is heard when one string of an instrument sounds: its overtones.
class QBSpectrum final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  bool calibrated() const { return read(m_calibrated); }
  void setCalibrated(bool value) { assign(m_calibrated, value); }
  QBInstrument* instrument() const;
  void setInstrument(QBInstrument* value);
  QBString* string() const;
  void setString(QBString* value);
  platform::Members<QBOvertone> overtones() const;

 private:
  platform::Attribute<bool> m_calibrated;
  platform::ToOne<QBInstrument> m_instrument;
  platform::ToOne<QBString> m_string;
  platform::ToMany<QBOvertone> m_overtones;
};

}  // namespace korvel
