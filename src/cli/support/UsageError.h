// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace korvel::cli {

/// Words of a command line that make no sense; the program ends with the status of wrong usage.
class UsageError : public std::runtime_error {
 public:
  /// Printed as "about: text", where about is the option or the command.
  UsageError(std::string about, const std::string& text)
      : std::runtime_error(text), m_about(std::move(about)) {}

  const std::string& about() const { return m_about; }

 private:
  std::string m_about;
};

}  // namespace korvel::cli
