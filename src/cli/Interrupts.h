// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

/// While it lives, Ctrl-C and requests to end are counted instead of ending the program, and a
/// reader of its output that goes away is an error of writing.
class Interrupts {
 public:
  Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;
  ~Interrupts();

  /// Whether there was one more since the last call; several at once count as one.
  bool next();

 private:
  int m_seen = 0;
};

}  // namespace korvel::cli
