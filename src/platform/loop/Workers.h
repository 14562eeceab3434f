// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/loop/WorkerJob.h"

namespace korvel::platform {

/// Threads that do jobs beside the one that hands them in, each job from its beginning to its end.
/// They take no signals, which are for the main thread.
class Workers {
 public:
  /// When a job begins: after those that wait already, or before them.
  enum class Turn : std::uint8_t { last, next };

  /// As many as the machine has cores for the program.
  static Workers& ofProcess();

  /// threads > 0.
  explicit Workers(std::size_t threads);
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  /// Jobs that are under way are asked to end and waited for; the others never begin.
  ~Workers();

  /// The job begins when a thread is free. It goes on when nobody holds it any more.
  std::shared_ptr<WorkerJob> begin(WorkerJob::Work work, Turn turn = Turn::last);

  std::size_t threads() const { return m_threads.size(); }

 private:
  void work(const std::stop_token& closing);
  std::shared_ptr<WorkerJob> next(const std::stop_token& closing);

  std::mutex m_lock;  ///< Guards m_waiting.
  std::condition_variable_any m_more;
  std::deque<std::shared_ptr<WorkerJob>> m_waiting;
  std::vector<std::jthread> m_threads;
};

}  // namespace korvel::platform
