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
/// They are made as they are needed, and take no signals, which are for the main thread.
class Workers {
 public:
  /// When a job begins: after those that wait already, or before them.
  enum class Turn : std::uint8_t { last, next };

  /// As many as the machine has cores for the program.
  static Workers& ofProcess();

  /// threads: at most so many, > 0.
  explicit Workers(std::size_t threads) : m_most(threads) {}
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  /// Jobs that are under way are asked to end and waited for; the others never begin.
  ~Workers();

  /// The job begins when a thread is free. It goes on when nobody holds it any more. Throws
  /// std::bad_alloc when there is not a single thread to be had.
  std::shared_ptr<WorkerJob> begin(WorkerJob::Work work, Turn turn = Turn::last);

  std::size_t threads() const { return m_most; }

 private:
  void work(const std::stop_token& closing);
  std::shared_ptr<WorkerJob> next(const std::stop_token& closing);
  void addThread();

  const std::size_t m_most;
  std::mutex m_lock;  ///< Guards what follows but the threads, which are the owner's.
  std::size_t m_idle = 0;
  std::condition_variable_any m_more;
  std::deque<std::shared_ptr<WorkerJob>> m_waiting;
  std::vector<std::jthread> m_threads;
};

}  // namespace korvel::platform
