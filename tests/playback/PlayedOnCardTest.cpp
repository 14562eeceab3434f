// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numbers>
#include <span>
#include <vector>

#include "platform/midi/FluidSynthesizer.h"
#include "platform/sound/SoundServer.h"
#include "playback/QBMIDIPlayer.h"
#include "support/SoundFont.h"
#include "support/StandardStore.h"
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
  std::span<const std::int16_t> part(long from, long frames) const {
    return std::span(m_samples).subspan(static_cast<std::size_t>(from),
                                        static_cast<std::size_t>(frames));
  }
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

/// The frequency between two others that sounds strongest.
double strongestBetween(std::span<const std::int16_t> samples, double low, double high) {
  double best = 0, found = 0;
  for (double frequency = low; frequency < high; frequency += 0.1) {
    const auto turn = std::polar(1.0, -2 * std::numbers::pi * frequency / 44100);
    const double window = 2 * std::numbers::pi / static_cast<double>(samples.size());
    std::complex<double> sum, phase = 1;
    for (std::size_t i = 0; i < samples.size(); ++i, phase *= turn)
      sum += phase * (samples[i] * (1 - std::cos(window * static_cast<double>(i))));
    if (std::abs(sum) > best) {
      best = std::abs(sum);
      found = frequency;
    }
  }
  return found;
}

struct Heard {
  std::vector<long> strums;  ///< Where they begin.
  double lowest = 0;         ///< Frequency of the lowest string.
};

/// What is heard of a song that strums at every second step.
Heard heardOf(QBSong& song) {
  platform::SoundServer server;
  const Tape tape;
  EXPECT_TRUE(test::eventually([&] { return tape.frames() > 0; }));
  QBMIDIPlayer player(song, std::make_unique<platform::MusicPlayer>(
                                server, "Card",
                                std::make_unique<platform::FluidSynthesizer>(
                                    test::kSoundFont, std::vector{QBMIDIPlayer::kProgram})));
  player.scanFull();
  EXPECT_TRUE(player.start()) << player.problem();
  EXPECT_TRUE(test::eventually([&] { return player.isOver(); }));
  player.stop();
  const std::vector<long> strums = tape.onsets();
  if (strums.empty()) return {};
  return {strums, strongestBetween(tape.part(strums[0] + 2000, 13000), 70, 100)};
}

bool keepTime(const std::vector<long>& strums) {
  if (strums.size() != kStrums) return false;
  for (std::size_t i = 1; i < strums.size(); ++i)
    if (std::abs(strums[i] - strums[i - 1] - 2 * kFramesOfStep) > kFramesOfBuffer) return false;
  return true;
}

TEST(PlayedOnCard, notesAreHeardAtTheirTimesAndPitch) {
  if (!test::VirtualSoundCard::isInstalled()) GTEST_SKIP() << "left out: no pulseaudio here";
  const test::VirtualSoundCard card;
  const test::StandardStore store;
  QBSong* song = store.song("Song");
  for (int i = 0; i < kStrums; ++i) {
    for (QBTone* tone : test::addChord(song, "022100")->hold()->tones()) tone->setDuration(1);
    test::addChord(song, "xxxxxx");
  }
  Heard heard;
  for (int i = 0; i < kAttempts && !keepTime(heard.strums); ++i) heard = heardOf(*song);
  EXPECT_TRUE(keepTime(heard.strums)) << testing::PrintToString(heard.strums);
  EXPECT_NEAR(heard.lowest, 82.4, 0.8) << "the open low E, as far as the sound font is in tune";
}

}  // namespace
}  // namespace korvel
