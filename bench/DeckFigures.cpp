// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a recording of plucked strings slower and faster, and prints what that costs, how it keeps
// its place over ten minutes, and how far the marker is from what a sound server's card plays.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <mutex>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "platform/deck/Deck.h"
#include "platform/midi/MusicPlayer.h"
#include "platform/midi/SilentSynthesizer.h"
#include "platform/sound/SoundServer.h"
#include "support/sound/Guitar.h"
#include "support/sound/VirtualSoundCard.h"

namespace {

using namespace korvel;
using platform::DeckBlock;

constexpr double kSamples = platform::kSampleRate;
constexpr double kMilliseconds = 1000;
constexpr double kMinutes = 10;
constexpr std::size_t kHalfASecond = 22050;

/// A string is struck at each whole second.
std::vector<std::int16_t> plucksOf(double seconds) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds * kSamples));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double t = static_cast<double>(i % platform::kSampleRate) / kSamples;
    double value = 0;
    for (int k = 1; k <= 8; ++k) value += std::sin(2 * std::numbers::pi * 110 * k * t) / k;
    samples[i] = static_cast<std::int16_t>(9000 * value * std::exp(-6 * t));
  }
  return samples;
}

std::shared_ptr<const platform::DecodedSound> decoded(const std::string& file) {
  auto sound = std::make_shared<const platform::DecodedSound>(file);
  while (!sound->isWhole()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return sound;
}

/// The first sample of a stretch that is half as loud as its loudest.
template <class Sample>
std::size_t onsetIn(const Sample* samples, std::size_t count, std::size_t stride) {
  double loudest = 0;
  for (std::size_t i = 0; i < count; ++i)
    loudest = std::max(loudest, std::abs(static_cast<double>(samples[i * stride])));
  std::size_t onset = 0;
  while (std::abs(static_cast<double>(samples[onset * stride])) < loudest / 2) ++onset;
  return onset;
}

/// What comes out for so many seconds, and what that costs.
struct Stretched {
  std::vector<float> left;
  double processorSeconds;

  Stretched(const platform::DecodedSound& sound, double rate, double seconds) {
    platform::DeckTape tape(&sound, {});
    tape.setRate(rate);
    tape.seek(0, 1);
    const auto block = std::make_unique<DeckBlock>();
    const std::clock_t begin = std::clock();
    while (static_cast<double>(left.size()) < seconds * kSamples && tape.next(*block))
      for (std::size_t i = 0; i < block->span.frames; ++i)
        left.push_back(block->sound[i * DeckBlock::kChannels]);
    processorSeconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  }

  /// How late the string of that second is, in milliseconds.
  double lateness(int second, double rate) const {
    const auto place = static_cast<std::size_t>(second * kSamples / rate);
    const std::size_t from = place - kHalfASecond / 5;
    const std::size_t onset = onsetIn(&left[from], kHalfASecond, 1);
    return (static_cast<double>(from + onset) - static_cast<double>(place)) / kSamples *
           kMilliseconds;
  }
};

void printCost(const platform::DecodedSound& sound) {
  for (const double rate : {0.25, 0.5, 1.5}) {
    constexpr double kSeconds = 20;
    const Stretched stretched(sound, rate, kSeconds);
    std::cout << "cost-" << rate << ' ' << stretched.processorSeconds / kSeconds << '\n';
  }
}

void printDrift(const platform::DecodedSound& sound) {
  constexpr double kRate = 0.5;
  const double seconds = kMinutes * 60;
  const Stretched stretched(sound, kRate, seconds);
  const double first = stretched.lateness(2, kRate);
  const double last = stretched.lateness(static_cast<int>(seconds * kRate) - 2, kRate);
  std::cout << "drift-ms " << std::abs(last - first) << '\n';
}

/// Records what a card plays, and when each sample of it was played.
class Monitor {
 public:
  Monitor() {
    m_queue = m_server.newInput("Monitor of Card", platform::kLiveSound,
                                [this](auto& buffer, auto& start, auto) {
                                  keep(buffer.sound(), start);
                                  m_queue->enqueue(buffer);
                                });
    for (int i = 0; i < 8; ++i) m_queue->enqueue(m_queue->allocateBuffer(1024 * 4));
    m_queue->start();
  }
  void stop() { m_queue->stop(); }

  const std::vector<std::int16_t>& left() const { return m_left; }
  /// Of the steady clock, in seconds.
  double timeOf(std::size_t sample) const {
    return m_begin + static_cast<double>(sample) / kSamples;
  }

 private:
  void keep(std::span<const std::byte> sound, const platform::AudioTimeStamp& start) {
    const auto* samples = reinterpret_cast<const std::int16_t*>(sound.data());
    if (m_left.empty()) m_begin = static_cast<double>(start.hostTime) / 1e9;
    // The earliest that any buffer tells is what the scheduling of this machine delayed least.
    m_begin = std::min(m_begin, static_cast<double>(start.hostTime) / 1e9 -
                                    static_cast<double>(m_left.size()) / kSamples);
    for (std::size_t i = 0; i < sound.size() / 4; ++i) m_left.push_back(samples[2 * i]);
  }

  platform::SoundServer m_server;
  std::vector<std::int16_t> m_left;
  double m_begin = 0;
  std::unique_ptr<platform::AudioQueue> m_queue;
};

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Where the marker stood when each string was heard, in milliseconds beside it.
std::vector<double> markerErrors(const std::shared_ptr<const platform::DecodedSound>& sound,
                                 double rate) {
  Monitor monitor;
  platform::SoundServer server;
  platform::MusicSequence none;
  platform::MusicPlayer player(server, "Card", std::make_unique<platform::SilentSynthesizer>());
  player.setSequence(none);
  player.setDeck(std::make_unique<platform::Deck>(sound, platform::DeckPlan{}));
  player.setPlayRateScalar(rate);
  player.setTime(0.5);
  player.start();
  struct Mark {
    double time, second;
  };
  std::vector<Mark> marks;
  while (player.time() < 0.5 + 6 * std::max(rate, 0.5)) {
    marks.push_back({steadySeconds(), player.time()});
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  player.stop();
  monitor.stop();
  std::vector<double> errors;
  for (int second = 1; second < marks.back().second - 0.5; ++second) {
    const auto mark = std::ranges::lower_bound(marks, second, {}, &Mark::second);
    const std::size_t near = static_cast<std::size_t>(
        std::max(0.0, (mark->time - monitor.timeOf(0)) * kSamples - kHalfASecond / 2.0));
    const std::size_t onset = near + onsetIn(&monitor.left()[near], kHalfASecond, 1);
    errors.push_back((monitor.timeOf(onset) - mark->time) * kMilliseconds);
  }
  return errors;
}

void printMarker(const std::shared_ptr<const platform::DecodedSound>& sound) {
  for (const double rate : {0.25, 0.5, 1.0, 1.5}) {
    std::vector<double> errors = markerErrors(sound, rate);
    std::ranges::sort(errors);
    std::cout << "marker-ms-" << rate << ' ' << errors[errors.size() / 2] << '\n';
  }
}

}  // namespace

int main() {
  const test::ScratchFolder folder;
  const std::string file = folder.file("plucks.wav");
  test::writeWav(file, plucksOf(kMinutes * 60 / 2 + 2));
  const auto sound = decoded(file);
  printCost(*sound);
  printDrift(*sound);
  const test::VirtualSoundCard card;
  printMarker(sound);
  return EXIT_SUCCESS;
}
