// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBHarmony;

/// One interval of a harmony.
class QBToneOfHarmony final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  int order() const { return read(m_order); }
  void setOrder(int value) { assign(m_order, value); }
  /// Semitones above the tone before it; above the root for the first.
  int step() const { return read(m_step); }
  void setStep(int value) { assign(m_step, value); }
  QBHarmony* harmony() const;
  void setHarmony(QBHarmony* value);
  void forgetCaches() override;

 private:
  platform::Attribute<int> m_order;
  platform::Attribute<int> m_step;
  platform::ToOne<QBHarmony> m_harmony;
};

}  // namespace korvel
