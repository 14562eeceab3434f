// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/QtRunLoop.h"

#include "support/Testing.h"

#include <QEventLoop>
#include <QTest>

namespace korvel::ui {
namespace {

using Timer = std::unique_ptr<platform::RunLoop::Timer>;

TEST(QtRunLoop, timerMayBeDroppedInItsOwnAction) {
  QtRunLoop loop([](const std::exception&) { FAIL(); });
  int ticks = 0;
  const auto kept = std::make_shared<int>(0);
  Timer timer;
  timer = loop.scheduleRepeating(0.001, [&ticks, &timer, kept] {
    if (++ticks == 3) timer.reset();
    ++*kept;
  });
  ASSERT_TRUE(QTest::qWaitFor([&] { return kept.use_count() == 1; }));
  QTest::qWait(20);
  EXPECT_EQ(ticks, 3);
  EXPECT_EQ(*kept, 3);
}

TEST(QtRunLoop, whatAnActionThrowsIsToldOnceAndEndsItsTimerOnly) {
  std::vector<std::string> told;
  QtRunLoop loop([&](const std::exception& exception) { told.emplace_back(exception.what()); });
  int ticks = 0;
  const Timer bad = loop.scheduleRepeating(0.001, [] { throw std::runtime_error("disk full"); });
  const Timer good = loop.scheduleRepeating(0.001, [&] { ++ticks; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 10; }));
  EXPECT_EQ(told, std::vector<std::string>{"disk full"});
}

TEST(QtRunLoop, timerRestsWhileItsActionShowsADialog) {
  QtRunLoop loop([](const std::exception&) { FAIL(); });
  int depth = 0;
  int deepest = 0;
  int others = 0;
  const Timer timer = loop.scheduleRepeating(0.001, [&] {
    deepest = std::max(deepest, ++depth);
    QTest::qWait(5);
    --depth;
  });
  const Timer other = loop.scheduleRepeating(0.001, [&] { ++others; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return others >= 20; }));
  EXPECT_EQ(deepest, 1);
}

}  // namespace
}  // namespace korvel::ui
