// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/QtRunLoop.h"

#include <QTimer>
#include <algorithm>
#include <deque>
#include <utility>

namespace korvel::ui {
namespace {

constexpr double kShortestSeconds = 0.001;
constexpr double kLongestSeconds = 1e6;

std::chrono::milliseconds intervalOf(double seconds) {
  const double kept =
      seconds > kShortestSeconds ? std::min(seconds, kLongestSeconds) : kShortestSeconds;
  return std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(kept));
}

struct Entry {
  QTimer timer;
  std::function<void()> action;
  bool due = false;
  bool firing = false;
};

void fire(Entry& entry, const QtRunLoop::Listener& onException) {
  if (entry.firing) return;
  entry.firing = true;
  try {
    entry.action();
  } catch (const std::exception& exception) {
    entry.timer.stop();
    onException(exception);
  }
  entry.firing = false;
}

}  // namespace

/// The actions that are due, one of which runs in each turn of the event loop.
class QtRunLoop::Turns {
 public:
  explicit Turns(Listener onException) : m_onException(std::move(onException)) {
    m_next.setInterval(0);
    QObject::connect(&m_next, &QTimer::timeout, [this] { runNext(); });
  }
  void add(const std::shared_ptr<Entry>& entry) {
    if (entry->due || entry->firing) return;
    entry->due = true;
    m_due.push_back(entry);
    m_next.start();
  }

 private:
  /// The next turn may come inside the action, when that runs an event loop of its own.
  void runNext() {
    const std::shared_ptr<Entry> entry = m_due.front().lock();
    m_due.pop_front();
    if (m_due.empty()) m_next.stop();
    if (!entry) return;
    entry->due = false;
    if (entry->timer.isActive()) fire(*entry, m_onException);
  }

  Listener m_onException;
  std::deque<std::weak_ptr<Entry>> m_due;
  QTimer m_next;
};

namespace {

/// What the caller holds. The action may drop it, and is let go once it has returned.
class Handle final : public platform::RunLoop::Timer {
 public:
  explicit Handle(std::shared_ptr<Entry> entry) : m_entry(std::move(entry)) {}
  ~Handle() override { m_entry->timer.stop(); }
  void invalidate() override { m_entry->timer.stop(); }

 private:
  std::shared_ptr<Entry> m_entry;
};

}  // namespace

QtRunLoop::QtRunLoop(Listener onException)
    : m_turns(std::make_shared<Turns>(std::move(onException))) {}

QtRunLoop::~QtRunLoop() = default;

std::unique_ptr<platform::RunLoop::Timer> QtRunLoop::scheduleRepeating(
    double seconds, std::function<void()> action) {
  auto entry = std::make_shared<Entry>();
  entry->action = std::move(action);
  entry->timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&entry->timer, &QTimer::timeout, [weak = std::weak_ptr(entry), turns = m_turns] {
    if (const auto kept = weak.lock()) turns->add(kept);
  });
  entry->timer.start(intervalOf(seconds));
  return std::make_unique<Handle>(std::move(entry));
}

}  // namespace korvel::ui
