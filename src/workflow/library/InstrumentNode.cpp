// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/InstrumentNode.h"

#include "workflow/library/LibraryEdits.h"
#include "workflow/session/NodeVisitor.h"

namespace korvel {

void InstrumentNode::accept(NodeVisitor& visitor) { visitor.visit(*this); }

void InstrumentNode::rename(const std::string& title) { renameInstrument(*m_instrument, title); }

}  // namespace korvel
