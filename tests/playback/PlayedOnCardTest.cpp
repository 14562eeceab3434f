// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/FluidSynthesizer.h"
#include "platform/sound/SoundServer.h"
#include "playback/QBMIDIPlayer.h"
#include "support/SoundFont.h"
#include "support/StandardStore.h"
#include "support/Testing.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

constexpr long kFramesOfStep = 16384;
constexpr long kFramesOfBuffer = 512;
constexpr int kBytesOfBuffer = 8192;
constexpr int kStrums = 4;
/// A machine that is busy with other things may be late with a buffer.
constexpr int kAttempts = 4;

/// What a card plays for half a minute, of the left channel.
class Tape {
 public:
  Tape() : m_samples(1323000) {
    m_queue = m_server.newInput("Monitor of Card", platform::kLiveSound,
                                [this](auto& buffer, auto&, auto) {
                                  keep(buffer.sound());
                                  m_queue->enqueue(buffer);
                                });
    for (int i = 0; i < 4; ++i) m_queue->enqueue(m_queue->allocateBuffer(kBytesOfBuffer));
    m_queue->start();
  }
  ~Tape() { m_queue->stop(); }

  long frames() const { return m_frames; }
  /// Where sound begins after an eighth of a second of silence.
  std::vector<long> onsets() const {
    std::vector<long> found;
    long silent = kFramesOfStep;
    for (long i = 0; i < m_frames; ++i) {
      const bool sounds = std::abs(m_samples[static_cast<std::size_t>(i)]) > 300;
      if (sounds && silent > 5500) found.push_back(i);
      silent = sounds ? 0 : silent + 1;
    }
    return found;
  }

 private:
  void keep(std::span<const std::byte> sound) {
    std::size_t frame = static_cast<std::size_t>(m_frames);
    for (std::size_t at = 0; at < sound.size() && frame < m_samples.size(); at += 4)
      std::memcpy(&m_samples[frame++], &sound[at], sizeof(std::int16_t));
    m_frames = static_cast<long>(frame);
  }

  platform::SoundServer m_server;
  std::vector<std::int16_t> m_samples;
  std::atomic<long> m_frames = 0;
  std::unique_ptr<platform::AudioQueue> m_queue;
};

/// Where the strums of a song begin that strums at every second step.
std::vector<long> strumsOf(QBSong& song) {
  platform::SoundServer server;
  const Tape tape;
  EXPECT_TRUE(test::eventually([&] { return tape.frames() > 0; }));
  QBMIDIPlayer player(song, std::make_unique<platform::MusicPlayer>(
                                server, "Card",
                                std::make_unique<platform::FluidSynthesizer>(
                                    test::kSoundFont, std::vector{QBMIDIPlayer::kProgram})));
  player.scanFull();
  EXPECT_TRUE(player.start()) << player.problem().english();
  EXPECT_TRUE(test::eventually([&] { return player.isOver(); }));
  player.stop();
  return tape.onsets();
}

bool keepTime(const std::vector<long>& strums) {
  if (strums.size() != kStrums) return false;
  for (std::size_t i = 1; i < strums.size(); ++i)
    if (std::abs(strums[i] - strums[i - 1] - 2 * kFramesOfStep) > kFramesOfBuffer) return false;
  return true;
}

TEST(PlayedOnCard, notesAreHeardAtTheirTimes) {
  if (!test::VirtualSoundCard::isInstalled()) GTEST_SKIP() << "left out: no pulseaudio here";
  const test::VirtualSoundCard card;
  const test::StandardStore store;
  QBSong* song = store.song("Song");
  for (int i = 0; i < kStrums; ++i) {
    for (QBTone* tone : test::addChord(song, "022100")->hold()->tones()) tone->setDuration(1);
    test::addChord(song, "xxxxxx");
  }
  std::vector<long> strums;
  for (int i = 0; i < kAttempts && !keepTime(strums); ++i) strums = strumsOf(*song);
  EXPECT_TRUE(keepTime(strums)) << testing::PrintToString(strums);
}

}  // namespace
}  // namespace korvel
