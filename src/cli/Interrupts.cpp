// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Interrupts.h"

#include <csignal>
#include <utility>

namespace korvel::cli {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t interruptions = 0;

void count(int) { interruptions = interruptions + 1; }

}  // namespace

Interrupts::Interrupts() {
  interruptions = 0;
  for (const int number : kSignals) std::signal(number, count);
  std::signal(SIGPIPE, SIG_IGN);
}

Interrupts::~Interrupts() {
  for (const int number : kSignals) std::signal(number, SIG_DFL);
  std::signal(SIGPIPE, SIG_DFL);
}

bool Interrupts::next() {
  const int now = interruptions;
  return std::exchange(m_seen, now) != now;
}

}  // namespace korvel::cli
