// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/PlainRunLoop.h"

#include "support/Testing.h"

namespace korvel::platform {
namespace {

using std::chrono::milliseconds;

/// A loop whose time passes by sleeping and by pass() only.
struct PlainRunLoopTest : testing::Test {
  void pass(int ms) { m_now += milliseconds(ms); }
  long now() const { return (m_now - PlainRunLoop::Time()) / milliseconds(1); }
  auto after(int ms) {
    return [this, ms] { return now() >= ms; };
  }
  auto note(const std::string& name) {
    return [this, name] { m_log += name + std::to_string(now()) + " "; };
  }

  PlainRunLoop::Time m_now;
  PlainRunLoop m_loop{
      {[this] { return m_now; }, [this](PlainRunLoop::Time t) { m_now = std::max(m_now, t); }}};
  std::string m_log;
};

TEST_F(PlainRunLoopTest, timersInterleaveByDueTimeThenByAge) {
  const auto a = m_loop.scheduleRepeating(0.02, note("a"));
  const auto b = m_loop.scheduleRepeating(0.03, note("b"));
  const auto c = m_loop.scheduleRepeating(0.02, note("c"));
  m_loop.runUntil(after(60));
  EXPECT_EQ(m_log, "a20 c20 b30 a40 c40 a60 ");
}

TEST_F(PlainRunLoopTest, missedTicksAreLeftOutAndStarveNobody) {
  const auto slow = m_loop.scheduleRepeating(0.01, [&] {
    note("s")();
    pass(34);
  });
  const auto other = m_loop.scheduleRepeating(0.05, note("o"));
  m_loop.runUntil(after(140));
  EXPECT_EQ(m_log, "s10 s44 s78 o112 s112 ");
}

TEST_F(PlainRunLoopTest, timerEndsWithItsObjectAlsoInItsOwnAction) {
  const auto held = std::make_shared<int>(0);
  std::unique_ptr<RunLoop::Timer> destroyed;
  destroyed = m_loop.scheduleRepeating(0.01, [&, held] {
    destroyed.reset();
    ++*held;
  });
  auto invalidated = m_loop.scheduleRepeating(0.01, [&, held] { ++*held; });
  const auto killer = m_loop.scheduleRepeating(0.025, [&] { invalidated->invalidate(); });
  m_loop.runUntil(after(100));
  EXPECT_EQ(*held, 3);
  EXPECT_EQ(held.use_count(), 1);
}

TEST_F(PlainRunLoopTest, endsWhenNoTimerIsLeft) {
  std::unique_ptr<RunLoop::Timer> timer;
  timer = m_loop.scheduleRepeating(0.01, [&] { timer.reset(); });
  m_loop.runUntil([] { return false; });
  EXPECT_EQ(now(), 10);
}

TEST_F(PlainRunLoopTest, exceptionLeavesTheLoopUsable) {
  int ticks = 0;
  const auto timer = m_loop.scheduleRepeating(0.01, [&] {
    if (++ticks == 2) throw std::runtime_error("tick");
  });
  EXPECT_THROW(m_loop.runUntil(after(100)), std::runtime_error);
  m_loop.runUntil(after(50));
  EXPECT_EQ(ticks, 5);
}

TEST_F(PlainRunLoopTest, actionMayRunTheLoopButIsNotReentered) {
  const auto outer = m_loop.scheduleRepeating(0.01, [&] {
    note("(")();
    m_loop.runUntil(after(35));
    note(")")();
  });
  const auto inner = m_loop.scheduleRepeating(0.015, note("i"));
  m_loop.runUntil([&] { return m_log.find(')') != std::string::npos; });
  EXPECT_EQ(m_log, "(10 i15 i30 i45 )45 ");
}

}  // namespace
}  // namespace korvel::platform
