// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/JobTurns.h"

#include "platform/loop/Deadline.h"
#include "support/JumpingLoop.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct JobTurnsTest : testing::Test {
  using Timer = std::unique_ptr<platform::RunLoop::Timer>;

  /// A job that writes its letter at each step, which takes its time when it is a capital one.
  Timer job(char letter) {
    return JobTurns::begin([this, letter] {
      const platform::Deadline deadline;
      m_steps += letter;
      while (letter < 'a' && !deadline.isOver()) continue;
    });
  }
  std::string tick() {
    m_steps.clear();
    m_loop.loop().runUntil([this] { return !m_steps.empty(); });
    return m_steps;
  }

  test::JumpingLoop m_loop;
  std::string m_steps;
};

TEST_F(JobTurnsTest, shortStepsGoTogetherAndLongOnesByTurns) {
  const Timer first = job('a');
  const Timer second = job('b');
  EXPECT_EQ(tick(), "ab");
  Timer third = job('X');
  const Timer fourth = job('Y');
  EXPECT_EQ(tick(), "abX");
  EXPECT_EQ(tick(), "Y");
  third.reset();
  EXPECT_EQ(tick(), "abY");
}

TEST_F(JobTurnsTest, oneThatFailsLeavesTheOthersGoing) {
  Timer failing;
  failing = JobTurns::begin([&failing] {
    failing.reset();
    throw std::runtime_error("broken");
  });
  const Timer other = job('a');
  EXPECT_THROW(tick(), std::runtime_error);
  EXPECT_EQ(tick(), "a");
}

}  // namespace
}  // namespace korvel
