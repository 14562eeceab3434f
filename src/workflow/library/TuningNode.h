// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/instruments/QBTuning.h"
#include "workflow/session/TreeNode.h"

namespace korvel {

class QBSession;

/// The node of a tuning; its description names the notes of the strings.
class TuningNode final : public TreeNode {
 public:
  TuningNode(QBTuning* tuning, QBSession& session) : m_tuning(tuning), m_session(session) {}

  std::string title() const override { return m_tuning->descr(); }
  std::string description() const override;
  bool isSelected() const override { return m_tuning->selected(); }
  void accept(NodeVisitor& visitor) override;
  /// Draws the tuning.
  void mouseClick() override;
  void rename(const std::string& title) override;

  QBTuning* tuning() const { return m_tuning; }

 private:
  platform::Ref<QBTuning> m_tuning;
  QBSession& m_session;
};

}  // namespace korvel
