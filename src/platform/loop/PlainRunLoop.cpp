// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/PlainRunLoop.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace korvel::platform {
namespace {

using Duration = PlainRunLoop::Time::duration;

Duration intervalOf(double seconds) {
  constexpr double shortest = 0.0001;
  constexpr double longest = 1e9;  // longer ones would overflow the clock
  const double kept = seconds > shortest ? std::min(seconds, longest) : shortest;
  return std::chrono::duration_cast<Duration>(std::chrono::duration<double>(kept));
}

}  // namespace

struct PlainRunLoop::Entry {
  Time due;
  Duration interval;
  std::function<void()> action;
  bool valid = true;
  bool firing = false;

  /// The first tick after now; those in between are missed.
  void scheduleAfter(Time now) { due += interval * ((now - due) / interval + 1); }
};

/// What the caller of scheduleRepeating holds. The loop drops the entry in its next round.
class PlainRunLoop::Handle : public RunLoop::Timer {
 public:
  explicit Handle(std::shared_ptr<Entry> entry) : m_entry(std::move(entry)) {}
  ~Handle() override { stop(); }
  void invalidate() override { stop(); }

 private:
  void stop() {
    m_entry->valid = false;
    // What the action holds is let go at once, but not while it runs.
    if (!m_entry->firing) m_entry->action = nullptr;
  }

  std::shared_ptr<Entry> m_entry;
};

PlainRunLoop::Clock PlainRunLoop::Clock::steady() {
  return {[] { return std::chrono::steady_clock::now(); },
          [](Time time) { std::this_thread::sleep_until(time); }};
}

PlainRunLoop::PlainRunLoop(Clock clock) : m_clock(std::move(clock)) {}

PlainRunLoop::~PlainRunLoop() = default;

PlainRunLoop& PlainRunLoop::ofProcess() {
  static PlainRunLoop loop;
  return loop;
}

std::unique_ptr<RunLoop::Timer> PlainRunLoop::scheduleRepeating(double seconds,
                                                                std::function<void()> action) {
  auto entry = std::make_shared<Entry>();
  entry->interval = intervalOf(seconds);
  entry->due = m_clock.now() + entry->interval;
  entry->action = std::move(action);
  m_entries.push_back(entry);
  return std::make_unique<Handle>(std::move(entry));
}

void PlainRunLoop::runUntil(const std::function<bool()>& done) {
  while (!done()) {
    const std::shared_ptr<Entry> entry = nextDue();
    if (!entry) return;
    m_clock.sleepUntil(entry->due);
    fire(*entry);
  }
}

std::shared_ptr<PlainRunLoop::Entry> PlainRunLoop::nextDue() {
  std::erase_if(m_entries, [](const auto& entry) { return !entry->valid; });
  std::shared_ptr<Entry> next;
  for (const auto& entry : m_entries)
    if (!entry->firing && (!next || entry->due < next->due)) next = entry;
  return next;
}

void PlainRunLoop::fire(Entry& entry) {
  struct Firing {
    explicit Firing(bool& mark) : flag(mark) { flag = true; }
    Firing(const Firing&) = delete;
    Firing& operator=(const Firing&) = delete;
    ~Firing() { flag = false; }
    bool& flag;
  };
  entry.scheduleAfter(m_clock.now());
  const Firing firing(entry.firing);
  entry.action();
}

}  // namespace korvel::platform
