// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace korvel::platform {

/// A store that cannot be opened, read or written. what() names the file and says what is wrong.
class StoreError : public std::runtime_error {
 public:
  enum class Reason {
    notAStore,  ///< The file is something else than a Korvel store.
    newer,      ///< Written by a newer version of the program.
    damaged,    ///< A Korvel store whose content cannot be trusted.
    inUse,      ///< Another process has it open.
    failed      ///< The system refused: no space, no permission, no such directory.
  };

  StoreError(Reason reason, std::string file, const std::string& problem)
      : std::runtime_error(file + ": " + problem), m_reason(reason), m_file(std::move(file)) {}

  /// For a file that is something else than a Korvel store.
  static StoreError notAStore(std::string file) {
    return {Reason::notAStore, std::move(file),
            "not a Korvel store; move it away or choose another file"};
  }

  Reason reason() const { return m_reason; }
  const std::string& file() const { return m_file; }

 private:
  Reason m_reason;
  std::string m_file;
};

}  // namespace korvel::platform
