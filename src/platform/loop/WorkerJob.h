// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <stop_token>

namespace korvel::platform {

/// A piece of work for one of several threads, which does it once. The work is asked to end by its
/// token, looks at that every few hundredths of a second, and touches nothing that belongs to
/// another thread. All but `run` and `stop` are for one thread, its owner's.
class WorkerJob {
 public:
  using Work = std::function<void(const std::stop_token&)>;

  explicit WorkerJob(Work work);
  WorkerJob(const WorkerJob&) = delete;
  WorkerJob& operator=(const WorkerJob&) = delete;
  ~WorkerJob();

  /// Does the work on the calling thread, unless it was begun or stopped before.
  void run();
  /// What was not begun is over; what is under way is asked to end, and not waited for.
  void stop();

  bool isOver() const;
  /// Returns when it is over, or after that time.
  void waitFor(std::chrono::milliseconds patience) const;
  /// Once it is over, and only once: throws what the work has thrown.
  void requireDone() { m_over.get(); }

 private:
  Work m_work;
  std::atomic<bool> m_begun = false;
  std::stop_source m_stop;
  std::promise<void> m_done;
  std::future<void> m_over;
};

}  // namespace korvel::platform
