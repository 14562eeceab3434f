// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBLeftHandPattern;
class QBRightHandPattern;
class QBTuning;

/// One string of a tuning, or one row of a hand pattern.
class QBString final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  const std::string& name() const { return read(m_name); }
  void setName(std::string value) { assign(m_name, std::move(value)); }
  /// 0..5, 0 the lowest-sounding string.
  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  /// Note of the open string, 0..11; in a left-hand pattern, the finger.
  int baseTone() const { return read(m_baseTone); }
  void setBaseTone(int value) { assign(m_baseTone, value); }
  /// Of the open string, in hertz.
  double frequency() const { return read(m_frequency); }
  void setFrequency(double value) { assign(m_frequency, value); }
  QBTuning* tuning() const;
  void setTuning(QBTuning* value);
  QBRightHandPattern* righthandpattern() const;
  void setRighthandpattern(QBRightHandPattern* value);
  QBLeftHandPattern* lefthandpattern() const;
  void setLefthandpattern(QBLeftHandPattern* value);

  void forgetCaches() override;

  /// Frequencies of frets 0..12 in hertz.
  const std::vector<float>& frequencyAll();
  /// Hertz; std::out_of_range for a fret beyond 0..12.
  float computeFrequency(int fret);
  int noteOfString() const { return baseTone(); }
  /// The note that the string has in a fixed table, in which only the lowest string follows the
  /// tuning. What it sounds in every tuning is in `QBTuning::openStrings`.
  int largeToneOfString() const;

 private:
  platform::Attribute<std::string> m_name;
  platform::Attribute<int> m_order;
  platform::Attribute<int> m_baseTone;
  platform::Attribute<double> m_frequency;
  platform::ToOne<QBTuning> m_tuning;
  platform::ToOne<QBRightHandPattern> m_righthandpattern;
  platform::ToOne<QBLeftHandPattern> m_lefthandpattern;

  std::vector<float> frequencies;
};

}  // namespace korvel
