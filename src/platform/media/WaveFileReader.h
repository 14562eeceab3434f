// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace korvel::platform {

/// Reads a WAV file as if it came from a microphone: frames of two channels of 16 bits, 44100 a
/// second, whatever the file has. The one channel of a mono file sounds in both, and so does the
/// mean of more than two. Any thread, one at a time.
class WaveFileReader {
 public:
  static constexpr int kChannels = 2;

  /// Throws FileError when the file cannot be read, is no WAV file, or has an impossible rate.
  explicit WaveFileReader(const std::filesystem::path& file);
  WaveFileReader(const WaveFileReader&) = delete;
  WaveFileReader& operator=(const WaveFileReader&) = delete;
  ~WaveFileReader();

  /// Fills the samples with whole frames and answers how many it filled: fewer than asked for at
  /// the end only. Throws FileError.
  std::size_t read(std::span<std::int16_t> samples);

 private:
  struct Decoder;
  struct Resampler;

  bool readMore();

  std::unique_ptr<Decoder> m_decoder;
  std::unique_ptr<Resampler> m_resampler;  ///< None when the rate is right.
  std::vector<float> m_pending;            ///< Samples to be handed out.
  std::size_t m_next = 0;                  ///< Index of the next of these.
  bool m_atEnd = false;
};

}  // namespace korvel::platform
