// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

#include "platform/files/NewFile.h"

namespace korvel::platform {

/// Writes a WAV file of 16-bit samples as they come. The file appears when it is finished; until
/// then, and when it never is, whatever has its name stays as it is. All throw FileError, for a
/// full disk as for a file that grows beyond the 4 GiB that the format can tell of. Any thread, one
/// at a time; writing waits for the disk.
class WaveFileWriter {
 public:
  WaveFileWriter(const std::filesystem::path& file, int sampleRate, int channels,
                 Existing existing = Existing::replaced);
  WaveFileWriter(const WaveFileWriter&) = delete;
  WaveFileWriter& operator=(const WaveFileWriter&) = delete;
  ~WaveFileWriter();

  /// Whole frames, their channels interleaved.
  void write(std::span<const std::int16_t> samples);
  /// Once only; nothing can be written afterwards. False when there is a file of that name by now
  /// which was to be kept.
  bool finish();

  std::uint64_t frames() const { return m_frames; }

 private:
  struct Encoder;

  NewFile m_file;
  const int m_channels;
  std::uint64_t m_frames = 0;
  std::unique_ptr<Encoder> m_encoder;
};

}  // namespace korvel::platform
