// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/Interrupts.h"

#include <algorithm>
#include <csignal>
#include <utility>

namespace korvel::cli {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

volatile std::sig_atomic_t interruptions = 0;

void count(int) { interruptions = interruptions + 1; }

/// Answers how the signal was treated before. What was started by nohup outlives its terminal.
Interrupts::Handler begin(int number) {
  const Interrupts::Handler before = std::signal(number, number == SIGPIPE ? SIG_IGN : count);
  if (number == SIGHUP && before == SIG_IGN) std::signal(number, SIG_IGN);
  return before;
}

}  // namespace

Interrupts::Interrupts() {
  interruptions = 0;
  std::ranges::transform(kSignals, m_before.begin(), begin);
}

Interrupts::~Interrupts() {
  for (std::size_t i = 0; i < m_before.size(); ++i) std::signal(kSignals[i], m_before[i]);
}

bool Interrupts::next() {
  const int now = interruptions;
  return std::exchange(m_seen, now) != now;
}

}  // namespace korvel::cli
