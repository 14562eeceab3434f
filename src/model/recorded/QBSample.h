// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBBlock;

/// One stored sample value.
class QBSample final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  /// Place in the block, counted from 1.
  int position() const { return read(m_position); }
  void setPosition(int value) { assign(m_position, value); }
  std::int16_t value() const { return read(m_value); }
  void setValue(std::int16_t value) { assign(m_value, value); }
  QBBlock* block() const;
  void setBlock(QBBlock* value);

  /// Same value; positions do not count.
  bool equals(const QBSample& other) const;

 private:
  platform::Attribute<int> m_position;
  platform::Attribute<std::int16_t> m_value;
  platform::ToOne<QBBlock> m_block;
};

}  // namespace korvel
