// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/WorkerJob.h"

#include <exception>
#include <utility>

namespace korvel::platform {

WorkerJob::WorkerJob(Work work) : m_work(std::move(work)), m_over(m_done.get_future()) {}

WorkerJob::~WorkerJob() = default;

/// The owner may count on it that what the work held is given back when it is over.
void WorkerJob::run() {
  if (m_begun.exchange(true)) return;
  std::exception_ptr failure;
  try {
    m_work(m_stop.get_token());
  } catch (...) {
    failure = std::current_exception();
  }
  m_work = nullptr;
  if (failure)
    m_done.set_exception(failure);
  else
    m_done.set_value();
}

void WorkerJob::stop() {
  m_stop.request_stop();
  if (m_begun.exchange(true)) return;
  m_work = nullptr;
  m_done.set_value();
}

bool WorkerJob::isOver() const {
  return m_over.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void WorkerJob::waitFor(std::chrono::milliseconds patience) const { m_over.wait_for(patience); }

}  // namespace korvel::platform
