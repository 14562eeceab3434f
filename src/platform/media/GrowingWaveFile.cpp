// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/GrowingWaveFile.h"

#include <fcntl.h>
#include <sndfile.h>
#include <sys/file.h>

#include <cerrno>
#include <string>

#include "platform/files/Descriptor.h"
#include "platform/files/FileError.h"

namespace korvel::platform {
namespace {

constexpr std::uint64_t kMostBytes = 0xFFFFFFFFULL - 4096;

}  // namespace

struct GrowingWaveFile::Encoder {
  Encoder(const std::filesystem::path& file, int sampleRate, int channels)
      : named(file),
        out(file, file, O_RDWR | O_CREAT | O_EXCL, phrase("Message", "cannot make"),
            Readers::ownerOnly) {
    ::flock(out.number(), LOCK_EX | LOCK_NB);
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    handle = sf_open_fd(out.number(), SFM_WRITE, &info, SF_FALSE);
    if (!handle)
      throw FileError(file, UserText(phrase("Message", "cannot write: %1"), sf_strerror(nullptr)));
    sf_command(handle, SFC_SET_UPDATE_HEADER_AUTO, nullptr, SF_TRUE);
    sf_command(handle, SFC_UPDATE_HEADER_NOW, nullptr, 0);
  }
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;
  ~Encoder() { sf_close(handle); }

  std::filesystem::path named;
  Descriptor out;
  SNDFILE* handle = nullptr;
  std::uint64_t bytes = 0;
};

GrowingWaveFile::GrowingWaveFile(const std::filesystem::path& file, int sampleRate, int channels)
    : m_encoder(std::make_unique<Encoder>(file, sampleRate, channels)) {}

GrowingWaveFile::~GrowingWaveFile() = default;

bool GrowingWaveFile::isGrowing(const std::filesystem::path& file) {
  const Descriptor in(file, file, O_RDONLY, FileError::kCannotRead);
  return ::flock(in.number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

void GrowingWaveFile::write(std::span<const std::int16_t> samples) {
  const auto& [named, out, handle, bytes] = *m_encoder;
  if (bytes + samples.size_bytes() > kMostBytes)
    throw FileError(named, phrase("Message", "cannot write: a WAV file ends at 4 GiB"));
  const auto count = static_cast<sf_count_t>(samples.size());
  errno = 0;
  if (sf_write_short(handle, samples.data(), count) != count ||
      sf_error(handle) != SF_ERR_NO_ERROR) {
    if (errno != 0) throw FileError(named, FileError::kCannotWrite, errno);
    throw FileError(named, UserText(phrase("Message", "cannot write: %1"), sf_strerror(handle)));
  }
  m_encoder->bytes += samples.size_bytes();
}

}  // namespace korvel::platform
