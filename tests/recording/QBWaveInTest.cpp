// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBWaveIn.h"

#include "analysis/chords/QBChordAnalyserStandard.h"
#include "support/Allocations.h"
#include "support/Testing.h"
#include "support/sound/HandFedMicrophone.h"

namespace korvel {
namespace {

struct HeldWaveIn final : QBWaveIn {
  using QBWaveIn::m_lock;
  using QBWaveIn::QBWaveIn;
};

struct QBWaveInTest : testing::Test {
  QBWaveInTest() { m_analyser.setM_source(m_wave); }

  int firstSample() const {
    const auto block = m_wave->readBuffer();
    return block ? block->toSamples().front() : -1;
  }

  test::HandFedMicrophone m_microphone;
  QBChordAnalyserStandard m_analyser{nullptr, nullptr};
  std::shared_ptr<HeldWaveIn> m_wave = std::make_shared<HeldWaveIn>(&m_analyser);
};

TEST_F(QBWaveInTest, microphoneKeepsThreeBuffersGoingRound) {
  EXPECT_EQ(m_wave->getVolume(), 0);
  m_wave->setDevice("USB");
  m_wave->startRecord(1);
  EXPECT_EQ(m_microphone.asked, "allocate enqueue allocate enqueue allocate enqueue flush start ");
  EXPECT_EQ(m_microphone.device, "USB");
  EXPECT_EQ(m_microphone.description, platform::kLiveSound);
  const QBAudioMicrophone& micro = m_wave->m_microphone();
  EXPECT_TRUE(micro.isRunning());
  EXPECT_EQ(micro.AudioBuffer(), m_wave.get());
  EXPECT_EQ(m_wave->getVolume(), 0.5F);
  EXPECT_TRUE(micro.timeIsValid({.hostTime = 500'000'001}));
  EXPECT_FALSE(micro.timeIsValid({.hostTime = 500'000'000}));
  EXPECT_FALSE(micro.timeIsValid({.hostTime = 1'000'000'001})) << "is yet to come";
  m_microphone.asked.clear();
  EXPECT_TRUE(m_microphone.hear(1));
  EXPECT_EQ(m_microphone.asked, "enqueue flush ");
  m_microphone.asked.clear();
  m_wave->stopRecord();
  EXPECT_EQ(m_microphone.asked, "flush stop reset ");
  EXPECT_FALSE(micro.isRunning());
  EXPECT_FALSE(micro.timeIsValid({}));
  EXPECT_EQ(firstSample(), 1) << "stays to be read";
  m_wave->setDevice("missing");
  EXPECT_THROW(m_wave->startRecord(0), platform::AudioError);
  EXPECT_FALSE(micro.isRunning());
}

TEST_F(QBWaveInTest, onlyFullBuffersBecomeBlocks) {
  std::vector<std::int64_t> heard;
  m_wave->onBlock([&](const QBSampleBlock& block) { heard.push_back(block.m_time); });
  m_wave->startRecord(0);
  m_microphone.hear(1);
  m_microphone.hear(2, 8191);
  m_microphone.hear(3);
  EXPECT_EQ(firstSample(), 1);
  EXPECT_EQ(firstSample(), 3);
  EXPECT_EQ(firstSample(), -1);
  EXPECT_EQ(heard, (std::vector<std::int64_t>{0, 8192 + 8191}));
}

TEST_F(QBWaveInTest, losesNothingToWhoReadsMeanwhileOrAMinuteLate) {
  constexpr int kMinute = 320;
  m_wave->startRecord(0);
  std::vector<std::byte> bytes(QBBlock::kBytes);
  const platform::QueueBuffer sound{.data = bytes, .dataByteSize = QBBlock::kBytes};
  int allocated = 0;
  const auto play = [&](int from, int to) {
    const int before = test::allocations();
    for (int i = from; i < to; ++i) m_wave->pushBuffer({.sampleTime = 1.0 * i}, sound);
    allocated += test::allocations() - before;
  };
  {
    const std::lock_guard reading(m_wave->m_lock);
    std::thread([&] {
      play(0, kMinute);
      EXPECT_EQ(m_wave->readBuffer(), nullptr) << "another thread reads";
    }).join();
  }
  EXPECT_EQ(m_wave->nmbOfDroppedBlocks(), 0);
  play(-2, 0);
  EXPECT_EQ(m_wave->nmbOfDroppedBlocks(), 2);
  EXPECT_EQ(m_wave->readBuffer()->m_time, 0);
  play(kMinute, kMinute + 1);
  for (int i = 1; i <= kMinute; ++i) ASSERT_EQ(m_wave->readBuffer()->m_time, i);
  EXPECT_EQ(m_wave->readBuffer(), nullptr);
  EXPECT_EQ(m_wave->nmbOfDroppedBlocks(), 2);
  EXPECT_EQ(allocated, 0) << "on the audio thread";
}

TEST_F(QBWaveInTest, knowsWhenItsDeviceHasEnded) {
  const QBAudioMicrophone& micro = m_wave->m_microphone();
  m_wave->startRecord(0);
  EXPECT_FALSE(micro.hasEnded());
  m_microphone.end(true);
  EXPECT_TRUE(micro.hasEnded() && micro.isLost());
  m_wave->stopRecord();
  EXPECT_TRUE(micro.isLost() && !micro.hasEnded());
  m_wave->startRecord(0);
  EXPECT_FALSE(micro.isLost());
}

}  // namespace
}  // namespace korvel
