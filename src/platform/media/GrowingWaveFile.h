// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace korvel::platform {

/// A new WAV file of 16-bit samples that is whole after every write, so that what was recorded can
/// be played even when the program was killed in the middle. All throw FileError: for a full disk,
/// for a file of that name that is there already, and at the 4 GiB that the format can tell of.
class GrowingWaveFile {
 public:
  GrowingWaveFile(const std::filesystem::path& file, int sampleRate, int channels);
  GrowingWaveFile(const GrowingWaveFile&) = delete;
  GrowingWaveFile& operator=(const GrowingWaveFile&) = delete;
  ~GrowingWaveFile();

  /// Whole frames, their channels interleaved.
  void write(std::span<const std::int16_t> samples);

  /// Whether a program, this one or another, is writing the file. Throws FileError.
  static bool isGrowing(const std::filesystem::path& file);

  /// Size of a file that nothing was written to.
  static constexpr std::uintmax_t kEmptySize = 44;

 private:
  struct Encoder;
  std::unique_ptr<Encoder> m_encoder;
};

}  // namespace korvel::platform
