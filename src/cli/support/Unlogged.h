// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/session/QBSession.h"

namespace korvel::cli {

/// Keeps what is logged off the terminal for as long as it lives, where what a command prints, or
/// that it ends well, says all that the log would.
class Unlogged {
 public:
  Unlogged() : m_before(QBSession::session().views()) {
    SessionViews views = m_before;
    views.output = nullptr;
    QBSession::session().attach(views);
  }
  Unlogged(const Unlogged&) = delete;
  Unlogged& operator=(const Unlogged&) = delete;
  ~Unlogged() { QBSession::session().attach(m_before); }

 private:
  const SessionViews m_before;
};

}  // namespace korvel::cli
