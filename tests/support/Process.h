// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace korvel::test {

/// What a program that has ended left.
struct Outcome {
  int status = -1;  ///< Exit status; -1 when a signal ended it.
  std::string out, err;
};

/// Runs a program, found on the path, and waits for it.
Outcome runProgram(const std::vector<std::string>& command);

/// A program that runs beside the test. It must be waited for or killed.
class Running {
 public:
  explicit Running(const std::vector<std::string>& command);
  void kill();
  /// Exit status; -1 when a signal ended it.
  int wait();

 private:
  pid_t m_pid;
};

}  // namespace korvel::test
