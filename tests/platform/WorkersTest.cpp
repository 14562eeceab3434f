// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/Workers.h"

#include <latch>
#include <stdexcept>

#include "support/Testing.h"

namespace korvel::platform {
namespace {

using Job = std::shared_ptr<WorkerJob>;

void finish(const Job& job) {
  while (!job->isOver()) job->waitFor(std::chrono::seconds(1));
}

TEST(Workers, doAsManyJobsAtOnceAsThereAreThreads) {
  Workers workers(2);
  std::latch both(2);
  const auto meet = [&](const std::stop_token&) { both.arrive_and_wait(); };
  const Job one = workers.begin(meet);
  finish(workers.begin(meet));
  finish(one);
}

TEST(Workers, beginInTurnAndDropWhatIsStopped) {
  std::string order;
  const auto held = std::make_shared<int>();
  std::latch begin(1);
  {
    Workers workers(1);
    workers.begin([&](const std::stop_token&) { begin.wait(); });
    const auto named = [&](char name) {
      return [&, name, held](const std::stop_token&) { order += name; };
    };
    workers.begin(named('b'));
    const Job dropped = workers.begin(named('x'));
    const Job last = workers.begin(named('c'));
    workers.begin(named('a'), Workers::Turn::next);
    dropped->stop();
    EXPECT_TRUE(dropped->isOver());
    EXPECT_EQ(held.use_count(), 4) << "what it held is given back";
    begin.count_down();
    finish(last);
  }
  EXPECT_EQ(order, "abc");
}

TEST(Workers, endWithTheirJobsAndTellWhatWentWrong) {
  Job failing;
  Job endless;
  Job late;
  std::latch under(1);
  {
    Workers workers(1);
    failing = workers.begin([](const std::stop_token&) { throw std::runtime_error("no"); });
    endless = workers.begin([&](const std::stop_token& ending) {
      under.count_down();
      while (!ending.stop_requested()) std::this_thread::yield();
    });
    late = workers.begin([](const std::stop_token&) {});
    under.wait();
  }
  EXPECT_THROW(failing->requireDone(), std::runtime_error);
  EXPECT_NO_THROW(endless->requireDone());
  EXPECT_FALSE(late->isOver()) << "it never began";
}

}  // namespace
}  // namespace korvel::platform
