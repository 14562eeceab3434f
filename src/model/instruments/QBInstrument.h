// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBSpectrum;
class QBString;
class QBTuning;

/// A calibrated sound model of a guitar: for each string, what else is heard when it sounds.
///
/// The order of the spectra is computed once; only the operations here that change it renew it.
class QBInstrument final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBInstrument();
  ~QBInstrument() override;

  const std::string& name() const { return read(m_name); }
  void setName(std::string value) { assign(m_name, std::move(value)); }
  /// The instrument in use; at most one is.
  bool active() const { return read(m_active); }
  void setActive(bool value) { assign(m_active, value); }
  bool editable() const { return read(m_editable); }
  void setEditable(bool value) { assign(m_editable, value); }
  bool calibrated() const { return read(m_calibrated); }
  void setCalibrated(bool value) { assign(m_calibrated, value); }
  /// Share of overtone evidence that a tone must have, 0..1.
  float detaillevel() const { return read(m_detaillevel); }
  void setDetaillevel(float value) { assign(m_detaillevel, value); }
  float volume() const { return read(m_volume); }
  void setVolume(float value) { assign(m_volume, value); }
  QBTuning* tuning() const;
  void setTuning(QBTuning* value);
  platform::Members<QBSpectrum> spectrums() const;

  void forgetCaches() override;

  /// The note of a string, as `QBString` has it, in the selected tuning, whatever tuning this
  /// instrument has.
  int largeToneOfString(int string) const;
  static int largeToneOfStringS(int string);
  /// The string whose open note is nearest below; 5 beyond either end.
  int stringByLargeTone(int largeTone) const;

  // Spectra. A position is a string's number; std::out_of_range where there is no spectrum.
  /// By the number of the string.
  const std::vector<platform::Ref<QBSpectrum>>& readAllSpectrums();
  QBSpectrum* findSpectrumByString(int position);
  void deleteSpectrumByString(int position);
  /// An empty spectrum in place of the string's present one.
  QBSpectrum* createSpectrum(QBString* string);
  void defineAsCalibrated() { setCalibrated(true); }
  bool isCalibrated() const { return calibrated(); }

 private:
  platform::Attribute<std::string> m_name;
  platform::Attribute<bool> m_active;
  platform::Attribute<bool> m_editable;
  platform::Attribute<bool> m_calibrated;
  platform::Attribute<float> m_detaillevel;
  platform::Attribute<float> m_volume;
  platform::ToOne<QBTuning> m_tuning;
  platform::ToMany<QBSpectrum> m_spectrums;

  std::optional<std::vector<platform::Ref<QBSpectrum>>> sortedSpectrums;
};

}  // namespace korvel
