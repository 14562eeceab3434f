// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/shelf/QBAudioSpeaker.h"

#include "audio/QBSampleBlock.h"
#include "platform/loop/NotificationCenter.h"
#include "support/Testing.h"
#include "support/sound/HandAudio.h"

namespace korvel {
namespace {

using platform::NotificationCenter;

struct QBAudioSpeakerTest : testing::Test {
  QBAudioSpeakerTest() { platform::AudioSystem::install(&m_audio); }
  ~QBAudioSpeakerTest() override { platform::AudioSystem::install(nullptr); }

  test::HandAudio m_audio;
  int m_stopped = 0;
  std::unique_ptr<NotificationCenter::Observer> m_observer =
      NotificationCenter::defaultCenter().observe("playbackQueueStopped", [this] { ++m_stopped; });
  QBAudioSpeaker m_speaker{nullptr};
};

TEST_F(QBAudioSpeakerTest, itsThreeBuffersGoRoundUntilItStops) {
  m_speaker.start();
  EXPECT_EQ(m_speaker.Queue()->description(), platform::kLiveSound);
  EXPECT_TRUE(m_speaker.IsRunning() && m_speaker.IsInitialized());
  EXPECT_EQ(m_audio.enqueued(), 3);
  m_audio.play(5 * 8192);
  EXPECT_EQ(m_audio.enqueued(), 8);
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
  EXPECT_EQ(m_audio.enqueued(), 3) << "as often as at first";
  EXPECT_TRUE(m_speaker.IsRunning());
}

TEST_F(QBAudioSpeakerTest, aLostDeviceIsTold) {
  m_speaker.start();
  m_audio.lose();
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
