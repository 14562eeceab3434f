// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/QBTuning.h"
#include "workflow/QBTreeNode.h"

namespace korvel {

/// The node of a tuning.
class QBTuningNode final : public QBTreeNode {
 public:
  explicit QBTuningNode(QBTuning* tuning) : m_tuning(tuning) {}

  std::string title() const override { return m_tuning->descr(); }
  QBTuning* tuning() const { return m_tuning; }

 private:
  platform::Ref<QBTuning> m_tuning;
};

}  // namespace korvel
