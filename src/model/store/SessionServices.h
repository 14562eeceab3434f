// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// What the lower layers ask of the running session: a line in the log, a report of an error.
/// The session installs itself; before that, and in programs without one, texts go to stderr.
class SessionServices {
 public:
  virtual ~SessionServices() = default;

  virtual void addToLog(std::string_view text) = 0;
  virtual void logError(std::string_view text) = 0;
  /// Reports an error after which the program cannot go on, and ends it with the front end's
  /// status for that.
  virtual void exitWithError(std::string_view context, std::string_view error) = 0;
  /// As exitWithError, with the status given.
  virtual void exitWithStatus(std::string_view context, std::string_view error, int status) = 0;

  static SessionServices& current();
  /// The services must stay alive until others are installed; null goes back to stderr.
  static void install(SessionServices* services);
};

}  // namespace korvel
