// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/Workers.h"

#include <algorithm>
#include <csignal>
#include <new>
#include <system_error>
#include <utility>

namespace korvel::platform {
namespace {

void takeNoSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

}  // namespace

Workers& Workers::ofProcess() {
  static Workers workers(std::max(1U, std::thread::hardware_concurrency()));
  return workers;
}

Workers::~Workers() {
  for (std::jthread& thread : m_threads) thread.request_stop();
  m_threads.clear();
}

std::shared_ptr<WorkerJob> Workers::begin(WorkerJob::Work work, Turn turn) {
  auto job = std::make_shared<WorkerJob>(std::move(work));
  bool areBusy = false;
  {
    const std::scoped_lock lock(m_lock);
    m_waiting.insert(turn == Turn::next ? m_waiting.begin() : m_waiting.end(), job);
    areBusy = m_waiting.size() > m_idle;
  }
  if (areBusy && m_threads.size() < m_most) addThread();
  m_more.notify_one();
  return job;
}

void Workers::addThread() {
  try {
    m_threads.emplace_back([this](const std::stop_token& closing) { work(closing); });
  } catch (const std::system_error&) {
    if (!m_threads.empty()) return;
    m_waiting.clear();
    throw std::bad_alloc();
  }
}

void Workers::work(const std::stop_token& closing) {
  takeNoSignals();
  while (const auto job = next(closing)) {
    const std::stop_callback ending(closing, [&job] { job->stop(); });
    job->run();
  }
}

/// Waits for one; none when the workers are to go.
std::shared_ptr<WorkerJob> Workers::next(const std::stop_token& closing) {
  std::unique_lock lock(m_lock);
  ++m_idle;
  m_more.wait(lock, closing, [this] { return !m_waiting.empty(); });
  --m_idle;
  if (closing.stop_requested()) return nullptr;
  auto job = std::move(m_waiting.front());
  m_waiting.pop_front();
  return job;
}

}  // namespace korvel::platform
