// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/QBAudioSpeaker.h"

#include <gtest/gtest.h>

#include "audio/QBSampleBlock.h"
#include "platform/loop/NotificationCenter.h"
#include "platform/sound/AudioSystem.h"
#include "platform/sound/BufferQueue.h"

namespace korvel {
namespace {

using platform::AudioError;
using platform::AudioQueue;
using platform::AudioTimeStamp;
using platform::NotificationCenter;
using platform::QueueBuffer;
using platform::StreamDescription;

/// An output that plays as much as the test takes from it.
struct Output final : platform::BufferQueue {
  using BufferQueue::BufferQueue;
  using BufferQueue::lose;

  ~Output() override { end(); }
  void start() override { begin(); }
  void stop() override { end(); }
  AudioTimeStamp currentTime() const override { return {}; }
  void enqueue(QueueBuffer& buffer) override {
    ++enqueued;
    BufferQueue::enqueue(buffer);
  }
  void takeBuffers(std::size_t count) {
    std::vector<std::byte> chunk(count * 32768);
    play(chunk);
  }

  int enqueued = 0;
};

struct OneOutput final : platform::AudioSystem {
  OneOutput() { install(this); }
  ~OneOutput() override { install(nullptr); }
  std::vector<std::string> inputs() override { return {}; }
  std::vector<std::string> outputs() override { return {kSystemDefault}; }
  std::unique_ptr<AudioQueue> newInput(const std::string&, const StreamDescription&,
                                       AudioQueue::InputCallback) override {
    throw AudioError("there is no input");
  }
  std::unique_ptr<AudioQueue> newOutput(const std::string&, const StreamDescription& description,
                                        AudioQueue::OutputCallback callback) override {
    auto made = std::make_unique<Output>(description, std::move(callback));
    output = made.get();
    return made;
  }

  Output* output = nullptr;
};

class QBAudioSpeakerTest : public testing::Test {
 protected:
  OneOutput m_system;
  int m_stopped = 0;
  std::unique_ptr<NotificationCenter::Observer> m_observer =
      NotificationCenter::defaultCenter().observe("playbackQueueStopped", [this] { ++m_stopped; });
  QBAudioSpeaker m_speaker{nullptr};
};

TEST_F(QBAudioSpeakerTest, itsThreeBuffersGoRoundUntilItStops) {
  m_speaker.start();
  Output& output = *m_system.output;
  EXPECT_EQ(output.description(), platform::kLiveSound);
  EXPECT_TRUE(m_speaker.IsRunning() && m_speaker.IsInitialized());
  EXPECT_EQ(output.enqueued, 3);
  output.takeBuffers(5);
  EXPECT_EQ(output.enqueued, 8);
  EXPECT_EQ(m_stopped, 0);
  EXPECT_EQ(m_speaker.stop(), QBAudioSpeaker::kStopped);
  EXPECT_FALSE(m_speaker.IsRunning());
  EXPECT_TRUE(m_speaker.IsInitialized()) << "until it is disposed of";
  EXPECT_EQ(m_stopped, 1);
  EXPECT_EQ(m_speaker.stop(), QBAudioSpeaker::kNoQueue);
  m_speaker.dispose();
  EXPECT_FALSE(m_speaker.IsInitialized());
}

TEST_F(QBAudioSpeakerTest, startedAgainItEnqueuesNothing) {
  m_speaker.start();
  m_speaker.stop();
  m_speaker.start();
  EXPECT_EQ(m_system.output->enqueued, 0);
  EXPECT_TRUE(m_speaker.IsRunning());
}

TEST_F(QBAudioSpeakerTest, aLostDeviceIsTold) {
  m_speaker.start();
  m_system.output->lose();
  EXPECT_FALSE(m_speaker.IsRunning());
  EXPECT_TRUE(m_speaker.Queue()->isLost());
  EXPECT_EQ(m_stopped, 1);
}

TEST_F(QBAudioSpeakerTest, pendingBlocksAreTakenInTheirOrder) {
  const auto first = std::make_shared<QBSampleBlock>(), second = std::make_shared<QBSampleBlock>();
  m_speaker.addBuffer(first);
  m_speaker.addBuffer(second);
  EXPECT_EQ(m_speaker.nextBuffer(), first);
  EXPECT_EQ(m_speaker.nextBuffer(), second);
  EXPECT_EQ(m_speaker.nextBuffer(), nullptr);
}

}  // namespace
}  // namespace korvel
