// SPDX-License-Identifier: GPL-3.0-or-later
// Records a WAV file live, at its own pace or as fast as it goes, and prints how long chords take
// from the end of their block on the audio thread until they are stored, and how many blocks were
// dropped.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <vector>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/sound/WaveFiles.h"
#include "recording/QBAudioMicrophone.h"
#include "support/store/ScratchFolder.h"
#include "workflow/session/StoreSeeding.h"
#include "workflow/takes/LiveRecording.h"

namespace {

using namespace korvel;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostBlocks = 100'000;

/// Files in the place of devices that note when each block was full.
class TimedFiles final : public platform::AudioSystem {
 public:
  TimedFiles(const char* file, platform::Pace pace) : m_files(file, {}, pace) {
    m_full.resize(kMostBlocks);
    install(this);
  }
  ~TimedFiles() override { install(nullptr); }

  std::vector<std::string> inputs() override { return m_files.inputs(); }
  std::vector<std::string> outputs() override { return {}; }
  std::unique_ptr<platform::AudioQueue> newInput(
      const std::string& device, const platform::StreamDescription& description,
      platform::AudioQueue::InputCallback callback) override {
    return m_files.newInput(device, description,
                            [this, callback = std::move(callback)](
                                platform::QueueBuffer& buffer,
                                const platform::AudioTimeStamp& start, std::uint32_t packets) {
                              m_full.at(blockOf(start.sampleTime)) = Clock::now();
                              ++m_blocks;
                              callback(buffer, start, packets);
                            });
  }
  std::unique_ptr<platform::AudioQueue> newOutput(const std::string& device,
                                                  const platform::StreamDescription& description,
                                                  platform::AudioQueue::OutputCallback) override {
    return m_files.newOutput(device, description, {});
  }

  double millisecondsSince(std::int64_t timestamp) const {
    const auto& full = m_full.at(blockOf(static_cast<double>(timestamp)));
    return std::chrono::duration<double, std::milli>(Clock::now() - full).count();
  }
  std::size_t blocks() const { return m_blocks; }

 private:
  static std::size_t blockOf(double sampleTime) {
    return static_cast<std::size_t>(sampleTime) / QBAudioMicrophone::kPackets;
  }

  platform::WaveFiles m_files;
  std::vector<Clock::time_point> m_full;
  std::size_t m_blocks = 0;
};

void print(const char* name, double value) { std::cout << name << ' ' << value << '\n'; }

void printLatencies(std::vector<double> latencies) {
  std::ranges::sort(latencies);
  const auto share = [&](double of) {
    return latencies.at(static_cast<std::size_t>(of * static_cast<double>(latencies.size() - 1)));
  };
  print("chords", static_cast<double>(latencies.size()));
  if (latencies.empty()) return;
  print("median-ms", share(0.5));
  print("p99-ms", share(0.99));
  print("worst-ms", latencies.back());
}

}  // namespace

int main(int argc, char** argv) {
  const bool fast = argc == 3 && argv[2] == std::string_view("--fast");
  if (argc != 2 && !fast) {
    std::cerr << "usage: korvel-live-latency FILE [--fast]\n";
    return EXIT_FAILURE;
  }
  const test::ScratchFolder folder;
  ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
  QBTabMgr::setStorePath(folder.file("Korvel.sqlite"));
  if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
  {
    TimedFiles files(argv[1], fast ? platform::Pace::fastest : platform::Pace::realTime);
    LiveRecording recording(QBTabMgr::db(), {.detection = &classicDetection()});
    std::vector<double> latencies;
    recording.onChord(
        [&](QBChord& chord) { latencies.push_back(files.millisecondsSince(chord.timestamp())); });
    recording.start();
    platform::PlainRunLoop::ofProcess().runUntil(
        [&] { return recording.state() == LiveRecording::State::over; });
    print("blocks", static_cast<double>(files.blocks()));
    print("dropped", static_cast<double>(recording.droppedBlocks()));
    print("lost-seconds", recording.lostSeconds());
    printLatencies(std::move(latencies));
  }
  QBTabMgr::clearDb();
}
