// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/TuningNode.h"

#include "workflow/library/TuningEdits.h"
#include "workflow/session/NodeVisitor.h"
#include "workflow/session/QBSession.h"

namespace korvel {

std::string TuningNode::description() const { return title() + " (" + notesOf(*m_tuning) + ')'; }

void TuningNode::accept(NodeVisitor& visitor) { visitor.visit(*this); }

void TuningNode::mouseClick() { m_session.drawTuning(m_tuning); }

void TuningNode::rename(const std::string& title) { renameTuning(*m_tuning, title); }

}  // namespace korvel
