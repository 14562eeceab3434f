// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/QtRunLoop.h"

#include <QTimer>
#include <algorithm>
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

QtRunLoop::QtRunLoop(Listener onException) : m_onException(std::move(onException)) {}

QtRunLoop::~QtRunLoop() = default;

std::unique_ptr<platform::RunLoop::Timer> QtRunLoop::scheduleRepeating(
    double seconds, std::function<void()> action) {
  auto entry = std::make_shared<Entry>();
  entry->action = std::move(action);
  entry->timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&entry->timer, &QTimer::timeout,
                   [weak = std::weak_ptr(entry), listener = m_onException] {
                     if (const auto kept = weak.lock()) fire(*kept, listener);
                   });
  entry->timer.start(intervalOf(seconds));
  return std::make_unique<Handle>(std::move(entry));
}

}  // namespace korvel::ui
