// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/JobTurns.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <utility>

#include "platform/loop/Deadline.h"

namespace korvel {
namespace {

constexpr double kStepSeconds = 0.01;
/// A step that begins later than this in a tick might end too late.
constexpr std::chrono::milliseconds kLastBegins{8};

using Step = std::function<void()>;

/// The jobs that run, the one whose turn is next first. Lives as long as one of them does.
class Turns : public std::enable_shared_from_this<Turns> {
 public:
  void add(std::shared_ptr<Step> job) {
    m_jobs.push_back(std::move(job));
    if (!m_timer) startTimer();
  }
  void remove(const std::shared_ptr<Step>& job) {
    std::erase(m_jobs, job);
    if (m_jobs.empty()) m_timer.reset();
  }

 private:
  void startTimer() {
    m_timer = platform::RunLoop::main().scheduleRepeating(kStepSeconds, [this] { tick(); });
  }

  void tick() {
    const auto keep = shared_from_this();
    try {
      step();
    } catch (...) {
      // A run loop may end the timer whose action has thrown.
      m_timer.reset();
      if (!m_jobs.empty()) startTimer();
      throw;
    }
  }

  /// Each once, unless time runs out.
  void step() {
    const platform::Deadline deadline(kLastBegins);
    for (std::size_t left = m_jobs.size(); left > 0 && !m_jobs.empty(); --left) {
      const auto job = m_jobs.front();
      std::rotate(m_jobs.begin(), m_jobs.begin() + 1, m_jobs.end());
      (*job)();
      if (deadline.isOver()) return;
    }
  }

  std::deque<std::shared_ptr<Step>> m_jobs;
  std::unique_ptr<platform::RunLoop::Timer> m_timer;
};

class Handle final : public platform::RunLoop::Timer {
 public:
  Handle(std::shared_ptr<Turns> turns, std::shared_ptr<Step> job)
      : m_turns(std::move(turns)), m_job(std::move(job)) {
    m_turns->add(m_job);
  }
  ~Handle() override { m_turns->remove(m_job); }
  void invalidate() override { m_turns->remove(m_job); }

 private:
  std::shared_ptr<Turns> m_turns;
  std::shared_ptr<Step> m_job;
};

}  // namespace

std::unique_ptr<platform::RunLoop::Timer> JobTurns::begin(std::function<void()> step) {
  static std::weak_ptr<Turns> current;
  auto turns = current.lock();
  if (!turns) current = turns = std::make_shared<Turns>();
  return std::make_unique<Handle>(std::move(turns), std::make_shared<Step>(std::move(step)));
}

}  // namespace korvel
