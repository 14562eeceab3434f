// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/QBSample.h"

#include "model/recorded/QBBlock.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBSample::describe() {
  return platform::EntityBuilder<QBSample>("QBSample")
      .attribute<&QBSample::m_position>("position")
      .attribute<&QBSample::m_value>("value")
      .toOne<&QBSample::m_block>("block", "QBBlock", "samples")
      .build();
}

QBBlock* QBSample::block() const { return target(m_block); }

void QBSample::setBlock(QBBlock* value) { relate(m_block, value); }

bool QBSample::equals(const QBSample& other) const { return value() == other.value(); }

}  // namespace korvel
