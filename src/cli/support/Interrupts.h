// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace korvel::cli {

/// While it lives, Ctrl-C and requests to end are counted instead of ending the program, and a
/// reader of its output that goes away is an error of writing. A terminal that goes away is a
/// request too, unless the program was told to outlive it.
class Interrupts {
 public:
  using Handler = void (*)(int);

  Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;
  ~Interrupts();

  /// Whether there was one more since the last call; several at once count as one.
  bool next();

 private:
  std::array<Handler, 4> m_before{};  ///< How the signals were treated.
  int m_seen = 0;
};

}  // namespace korvel::cli
