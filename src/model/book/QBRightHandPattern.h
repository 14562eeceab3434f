// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBChord;
class QBString;

/// A picking pattern: which strings the right hand strikes, one row for each.
class QBRightHandPattern final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  platform::Members<QBString> strings() const;

  /// Whether the chord has a tone on every string of the pattern.
  bool matches(const QBChord& chord) const;
  int weight() const;
  /// Whether the pattern can follow the other one; every pattern can.
  bool isPlayable(const QBRightHandPattern& previous) const;

 private:
  platform::Attribute<int> m_order;
  platform::ToMany<QBString> m_strings;
};

}  // namespace korvel
