// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/LiveTake.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "audio/QBSampleBlock.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/media/GrowingWaveFile.h"
#include "platform/sound/AudioQueue.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr int kRate = static_cast<int>(platform::kLiveSound.sampleRate);
constexpr int kChannels = static_cast<int>(platform::kLiveSound.channelsPerFrame);
constexpr std::int64_t kFramesOfSilence = 8192;
constexpr const char* kEnding = ".wav";

void makeFolderOf(const fs::path& file) {
  if (file.has_parent_path()) platform::makePrivateFolders(file.parent_path());
}

bool isLeft(const fs::directory_entry& entry) {
  std::error_code unreadable;
  if (entry.path().extension() != kEnding || !entry.is_regular_file(unreadable)) return false;
  try {
    return !platform::GrowingWaveFile::isGrowing(entry.path());
  } catch (const platform::FileError&) {
    return false;
  }
}

float levelOf(std::span<const std::int16_t> samples) {
  int loudest = 0;
  for (const std::int16_t sample : samples) loudest = std::max(loudest, std::abs(sample));
  return static_cast<float>(loudest) / 32768.0F;
}

}  // namespace

LiveTake::LiveTake(fs::path file)
    : m_file(std::move(file)), m_sound(std::make_shared<KeptSound>(kRate)) {
  makeFolderOf(m_file);
  m_out = std::make_unique<platform::GrowingWaveFile>(m_file, kRate, kChannels);
}

LiveTake::~LiveTake() = default;

void LiveTake::add(const QBSampleBlock& block) {
  addSilence(block.m_time - m_frames);
  const std::vector<std::int16_t> samples = block.toSamples();
  addFrames(samples);
  m_level = levelOf(samples);
}

void LiveTake::addSilence(std::int64_t frames) {
  for (std::int64_t rest = frames; rest > 0; rest -= kFramesOfSilence) {
    const auto count = static_cast<std::size_t>(std::min(rest, kFramesOfSilence) * kChannels);
    addFrames(std::vector<std::int16_t>(count));
  }
  m_lostFrames += std::max<std::int64_t>(frames, 0);
}

void LiveTake::addFrames(std::span<const std::int16_t> samples) {
  m_mono.clear();
  for (std::size_t i = 0; i + 1 < samples.size(); i += kChannels)
    m_mono.push_back(static_cast<std::int16_t>((samples[i] + samples[i + 1]) / kChannels));
  m_sound->keep(m_mono);
  m_frames += static_cast<std::int64_t>(m_mono.size());
  try {
    if (m_out) m_out->write(samples);
  } catch (const platform::FileError& error) {
    m_problem = error.text();
    m_out.reset();
  }
}

void LiveTake::removeFile() {
  m_out.reset();
  std::error_code gone;
  fs::remove(m_file, gone);
}

double LiveTake::seconds() const { return static_cast<double>(m_frames) / kRate; }

double LiveTake::lostSeconds() const { return static_cast<double>(m_lostFrames) / kRate; }

fs::path LiveTake::freeFile(const fs::path& folder, const std::string& name) {
  std::string free = name;
  std::error_code unknown;  // whoever makes the file is told why it cannot be made
  while (fs::exists(folder / (free + kEnding), unknown)) free += "_2";
  return folder / (free + kEnding);
}

std::vector<fs::path> LiveTake::leftIn(const fs::path& folder) {
  std::vector<fs::path> takes;
  std::error_code unreadable;
  for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
    if (!isLeft(entry)) continue;
    if (entry.file_size(unreadable) <= platform::GrowingWaveFile::kEmptySize)
      fs::remove(entry.path(), unreadable);
    else
      takes.push_back(entry.path());
  }
  std::ranges::sort(takes);
  return takes;
}

double LiveTake::secondsOf(const fs::path& file) {
  constexpr double kBytesOfSecond = double(kRate) * kChannels * sizeof(std::int16_t);
  std::error_code gone;
  const std::uintmax_t size = fs::file_size(file, gone);
  constexpr auto kHeader = platform::GrowingWaveFile::kEmptySize;
  return gone || size < kHeader ? 0 : static_cast<double>(size - kHeader) / kBytesOfSecond;
}

}  // namespace korvel
