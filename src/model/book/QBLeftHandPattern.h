// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBString;

/// A fingering pattern: which finger stops which string, one row for each string used.
class QBLeftHandPattern final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  platform::Members<QBString> strings() const;

 private:
  platform::Attribute<int> m_order;
  platform::ToMany<QBString> m_strings;
};

}  // namespace korvel
