// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/instruments/QBInstrument.h"
#include "workflow/session/TreeNode.h"

namespace korvel {

/// The node of an instrument.
class InstrumentNode final : public TreeNode {
 public:
  explicit InstrumentNode(QBInstrument* instrument) : m_instrument(instrument) {}

  std::string title() const override { return m_instrument->name(); }
  bool isSelected() const override { return m_instrument->active(); }
  void accept(NodeVisitor& visitor) override;
  void rename(const std::string& title) override;

  QBInstrument* instrument() const { return m_instrument; }

 private:
  platform::Ref<QBInstrument> m_instrument;
};

}  // namespace korvel
