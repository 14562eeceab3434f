// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "platform/text/UserError.h"

namespace korvel::platform {

/// A store that cannot be opened, read or written. The text names the file and says what is wrong.
class StoreError : public UserError {
 public:
  enum class Reason {
    notAStore,  ///< The file is something else than a Korvel store.
    newer,      ///< Written by a newer version of the program.
    damaged,    ///< A Korvel store whose content cannot be trusted.
    inUse,      ///< Another process has it open.
    failed      ///< The system refused: no space, no permission, no such directory.
  };

  StoreError(Reason reason, std::string file, const UserText& problem)
      : UserError(phrase("Message", "%1: %2"), file, problem),
        m_reason(reason),
        m_file(std::move(file)) {}

  /// For a file that is something else than a Korvel store.
  static StoreError notAStore(std::string file) {
    return {Reason::notAStore, std::move(file),
            phrase("Message", "not a Korvel store; move it away or choose another file")};
  }

  Reason reason() const { return m_reason; }
  const std::string& file() const { return m_file; }

 private:
  Reason m_reason;
  std::string m_file;
};

}  // namespace korvel::platform
