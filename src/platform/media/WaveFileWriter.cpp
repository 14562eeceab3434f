// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/WaveFileWriter.h"

#include <sndfile.h>

#include <cassert>
#include <cerrno>
#include <string>

#include "platform/files/FileError.h"

namespace korvel::platform {
namespace {

/// The sizes in the header have 32 bits and count the rest of the header too.
constexpr std::uint64_t kMostBytes = 0xFFFFFFFFULL - 4096;

SNDFILE* opened(const NewFile& file, int sampleRate, int channels) {
  SF_INFO info{};
  info.samplerate = sampleRate;
  info.channels = channels;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  errno = 0;
  SNDFILE* encoder = sf_open_fd(file.descriptor(), SFM_WRITE, &info, SF_FALSE);
  if (!encoder && errno != 0) throw FileError(file.file(), FileError::kCannotWrite, errno);
  if (!encoder)
    throw FileError(file.file(),
                    UserText(phrase("Message", "cannot write: %1"), sf_strerror(nullptr)));
  return encoder;
}

}  // namespace

struct WaveFileWriter::Encoder {
  Encoder(const NewFile& file, int sampleRate, int channels)
      : handle(opened(file, sampleRate, channels)), named(file.file()) {}
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;
  ~Encoder() { sf_close(handle); }

  /// The library tells that the system refused, but not why.
  void require(bool succeeded) const {
    if (succeeded && sf_error(handle) == SF_ERR_NO_ERROR) return;
    if (errno != 0) throw FileError(named, FileError::kCannotWrite, errno);
    throw FileError(named, UserText(phrase("Message", "cannot write: %1"), sf_strerror(handle)));
  }

  void write(std::span<const std::int16_t> samples) const {
    const auto count = static_cast<sf_count_t>(samples.size());
    errno = 0;
    require(sf_write_short(handle, samples.data(), count) == count);
  }

  /// The header gets the sizes.
  void complete() const {
    errno = 0;
    sf_command(handle, SFC_UPDATE_HEADER_NOW, nullptr, 0);
    require(true);
  }

  SNDFILE* handle;
  std::filesystem::path named;
};

WaveFileWriter::WaveFileWriter(const std::filesystem::path& file, int sampleRate, int channels,
                               Existing existing)
    : m_file(file, existing),
      m_channels(channels),
      m_encoder(std::make_unique<Encoder>(m_file, sampleRate, channels)) {}

WaveFileWriter::~WaveFileWriter() = default;

void WaveFileWriter::write(std::span<const std::int16_t> samples) {
  assert(samples.size() % static_cast<std::size_t>(m_channels) == 0);
  const std::uint64_t frames = m_frames + samples.size() / static_cast<std::size_t>(m_channels);
  if (frames * static_cast<std::uint64_t>(m_channels) * sizeof(std::int16_t) > kMostBytes)
    throw FileError(m_file.file(), phrase("Message", "cannot write: a WAV file ends at 4 GiB"));
  m_encoder->write(samples);
  m_frames = frames;
}

bool WaveFileWriter::finish() {
  m_encoder->complete();
  m_encoder.reset();
  return m_file.appear();
}

}  // namespace korvel::platform
