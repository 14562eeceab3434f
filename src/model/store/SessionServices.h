// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/UserText.h"

namespace korvel {

/// What the lower layers ask of the running session: a line in the log, a report of an error. Both
/// are values, which a front end puts into its user's language. What
/// ends their work they throw; whether it ends the program is for a front end to decide.
/// The session installs itself; before that, and in programs without one, texts go to stderr.
class SessionServices {
 public:
  virtual ~SessionServices() = default;

  virtual void addToLog(const platform::UserText& text) = 0;
  virtual void logError(const platform::UserText& text) = 0;

  static SessionServices& current();
  /// The services must stay alive until others are installed; null goes back to stderr.
  static void install(SessionServices* services);
};

}  // namespace korvel
