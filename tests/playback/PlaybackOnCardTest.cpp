// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>
#include <span>
#include <string>
#include <vector>

#include "model/ChordStep.h"
#include "platform/FluidSynthesizer.h"
#include "platform/SoundServer.h"
#include "playback/QBMIDIPlayer.h"
#include "support/SoundFont.h"
#include "support/StandardStore.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

using test::eventually;

constexpr double kRate = platform::kLiveSound.sampleRate;
constexpr std::uint32_t kBufferBytes = 32768;
constexpr double kSecondsOfBuffer = 8192 / kRate;

/// Records the left channel, for half a minute at most.
class Recording {
 public:
  Recording(platform::AudioSystem& system, const std::string& device) {
    m_queue = system.newInput(device, platform::kLiveSound,
                              [this](auto& buffer, auto&, auto) { take(buffer); });
    for (int i = 0; i < 3; ++i) m_queue->enqueue(m_queue->allocateBuffer(kBufferBytes));
    m_queue->start();
  }

  std::vector<double> stop() {
    m_queue->stop();
    m_samples.resize(m_size);
    return m_samples;
  }

 private:
  void take(platform::QueueBuffer& buffer) {
    std::size_t size = m_size;
    for (std::size_t at = 0; at < buffer.sound().size() && size < m_samples.size(); at += 4) {
      std::int16_t left = 0;
      std::memcpy(&left, &buffer.sound()[at], sizeof left);
      m_samples[size++] = left;
    }
    m_size = size;
    m_queue->enqueue(buffer);
  }

  std::vector<double> m_samples = std::vector<double>(static_cast<std::size_t>(30 * kRate));
  std::atomic<std::size_t> m_size = 0;
  std::unique_ptr<platform::AudioQueue> m_queue;
};

std::span<const double> part(const std::vector<double>& samples, double from, double seconds) {
  return std::span(samples).subspan(static_cast<std::size_t>(from * kRate),
                                    static_cast<std::size_t>(seconds * kRate));
}

double loudness(std::span<const double> samples) {
  double sum = 0;
  for (const double sample : samples) sum += sample * sample;
  return sum / static_cast<double>(samples.size());
}

/// Where within a step about `expected` sound grows most, in seconds. What was heard in the fifth
/// of a second before counts, so that sound which only dropped out does not grow.
double onsetNear(const std::vector<double>& samples, double expected) {
  double best = 0, onset = 0;
  for (double t = expected - kSecondsOfChord; t < expected + kSecondsOfChord; t += 0.002) {
    const double growth =
        loudness(part(samples, t, 0.02)) / (1 + loudness(part(samples, t - 0.2, 0.2)));
    if (growth > best) {
      best = growth;
      onset = t;
    }
  }
  return onset;
}

/// The frequency between two others that sounds strongest.
double strongestBetween(std::span<const double> samples, double low, double high) {
  double best = 0, found = 0;
  for (double frequency = low; frequency < high; frequency += 0.05) {
    const auto count = static_cast<double>(samples.size());
    const auto turn = std::polar(1.0, -2 * std::numbers::pi * frequency / kRate);
    std::complex<double> sum, phase = 1;
    for (std::size_t i = 0; i < samples.size(); ++i, phase *= turn) {
      const double window =
          1 - std::cos(2 * std::numbers::pi * (static_cast<double>(i) + 0.5) / count);
      sum += phase * samples[i] * window;
    }
    if (std::abs(sum) > best) {
      best = std::abs(sum);
      found = frequency;
    }
  }
  return found;
}

TEST(PlaybackOnCard, notesSoundAtTheirTimesAndPitch) {
  if (!test::VirtualSoundCard::isInstalled()) GTEST_SKIP() << "left out: no pulseaudio here";
  const test::VirtualSoundCard card;
  const test::StandardStore store;
  QBSong& song = *store.song("Song");
  const std::vector<std::string> chords{"0xxxxx", "xxxxxx", "xxxxxx", "xxxx5x",
                                        "xxxxxx", "xxxxxx", "xxxxxx", "x3xxxx"};
  for (const std::string& chord : chords) test::addChord(&song, chord);
  platform::SoundServer server;
  QBMIDIPlayer player(song, std::make_unique<platform::MusicPlayer>(
                                server, "Card",
                                std::make_unique<platform::FluidSynthesizer>(
                                    test::kSoundFont, std::vector{QBMIDIPlayer::kProgram})));
  player.scanFull();
  Recording recording(server, "Monitor of Card");
  ASSERT_TRUE(player.start()) << player.problem();
  ASSERT_TRUE(eventually([&] { return player.isOver(); }));
  player.stop();
  const std::vector<double> samples = recording.stop();

  const auto first = std::ranges::find_if(samples, [](double s) { return std::abs(s) > 20; });
  ASSERT_NE(first, samples.end());
  const double start = static_cast<double>(first - samples.begin()) / kRate;
  for (const int place : {3, 7}) {
    const double expected = start + place * kSecondsOfChord;
    EXPECT_NEAR(onsetNear(samples, expected), expected, kSecondsOfBuffer) << place;
  }
  constexpr double kLowE = 82.4, kTuningOfSoundFont = 0.8;
  EXPECT_NEAR(strongestBetween(part(samples, start + 0.1, 0.7), 70, 100), kLowE,
              kTuningOfSoundFont);
}

}  // namespace
}  // namespace korvel
