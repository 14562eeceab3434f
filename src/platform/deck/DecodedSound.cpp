// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/DecodedSound.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include "platform/files/FileError.h"
#include "platform/media/MediaError.h"

namespace korvel::platform {
namespace {

constexpr std::size_t kBytesOfFrame = DecodedSound::kChannels * sizeof(std::int16_t);
constexpr float kFullScale = 32768;
constexpr std::size_t kFramesReadAtOnce = 1024;

std::unique_ptr<StereoReader> readerOf(const std::filesystem::path& file) {
  const MediaAsset asset(file);
  if (!asset.hasTrackList()) throw MediaError(file, asset.problem());
  const MediaTrack* track = asset.firstSound();
  if (!track) throw MediaError(file, phrase("Message", "there is no sound in it"));
  auto reader = std::make_unique<StereoReader>(asset, *track);
  if (!reader->start())
    throw MediaError(file, phrase("Message", "the track is no sound that can be decoded"));
  return reader;
}

}  // namespace

void DecodedSound::CloseSpool::operator()(std::FILE* file) const { std::fclose(file); }

DecodedSound::DecodedSound(const std::filesystem::path& file)
    : m_file(file), m_spool(std::tmpfile()), m_reader(readerOf(file)) {
  if (!m_spool)
    throw FileError(std::filesystem::temp_directory_path(), FileError::kCannotWrite, errno);
  m_thread = std::jthread([this](const std::stop_token& stopping) { decode(stopping); });
}

DecodedSound::~DecodedSound() = default;

void DecodedSound::decode(const std::stop_token& stopping) {
  while (!stopping.stop_requested()) {
    const auto samples = m_reader->next();
    if (samples.empty() || !keep(samples)) break;
  }
  m_whole = true;
}

/// What is counted has been written.
bool DecodedSound::keep(std::span<const std::int16_t> samples) {
  std::span<const std::byte> rest = std::as_bytes(samples);
  auto place = m_frames * static_cast<std::int64_t>(kBytesOfFrame);
  while (!rest.empty()) {
    const ssize_t written = pwrite(fileno(m_spool.get()), rest.data(), rest.size(), place);
    if (written <= 0) {
      m_writeError = written < 0 ? errno : ENOSPC;
      return false;
    }
    place += written;
    rest = rest.subspan(static_cast<std::size_t>(written));
  }
  m_frames += static_cast<std::int64_t>(samples.size() / kChannels);
  return true;
}

void DecodedSound::read(std::int64_t frame, std::span<float> samples) const {
  std::array<std::int16_t, kFramesReadAtOnce * kChannels> piece{};
  while (!samples.empty()) {
    const std::size_t count = std::min(samples.size(), piece.size());
    const auto frames = static_cast<std::int64_t>(count / kChannels);
    const std::int64_t first = std::clamp<std::int64_t>(-frame, 0, frames);
    const std::int64_t end = std::clamp<std::int64_t>(m_frames - frame, first, frames);
    piece.fill(0);
    if (end > first &&
        pread(fileno(m_spool.get()), piece.data() + first * static_cast<std::int64_t>(kChannels),
              static_cast<std::size_t>(end - first) * kBytesOfFrame,
              (frame + first) * static_cast<std::int64_t>(kBytesOfFrame)) <= 0)
      piece.fill(0);
    for (std::size_t i = 0; i < count; ++i) samples[i] = static_cast<float>(piece[i]) / kFullScale;
    samples = samples.subspan(count);
    frame += frames;
  }
}

UserText DecodedSound::problem() const {
  if (m_writeError != 0)
    return FileError(std::filesystem::temp_directory_path(), FileError::kCannotWrite, m_writeError)
        .text();
  if (m_whole && m_reader->hasFailed())
    return MediaError(m_file, phrase("Message", "cannot be read any further")).text();
  return {};
}

}  // namespace korvel::platform
