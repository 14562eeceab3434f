// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <thread>

#include "platform/deck/StereoReader.h"
#include "platform/text/UserText.h"

namespace korvel::platform {

/// The sound of a file, any part of which can be had at once. It is decoded by a thread of its own
/// from the beginning to the end, as fast as that goes, into a nameless file of the folder for
/// temporary files, 10 MB a minute: so frame n is exactly frame n of whoever decodes the file in
/// its order, however inexactly its format can be searched, and the file may be gone afterwards.
class DecodedSound {
 public:
  static constexpr std::size_t kChannels = 2;

  /// Begins to decode. Throws FileError when the file is no sound that can be decoded, or nothing
  /// can be written.
  explicit DecodedSound(const std::filesystem::path& file);
  DecodedSound(const DecodedSound&) = delete;
  DecodedSound& operator=(const DecodedSound&) = delete;
  ~DecodedSound();

  // For any thread.
  /// How many frames can be had by now, of kSampleRate a second.
  std::int64_t frames() const { return m_frames; }
  /// No more will come.
  bool isWhole() const { return m_whole; }
  /// Frames from that one on, interleaved, 1 is full scale; silence where there is none (yet).
  void read(std::int64_t frame, std::span<float> samples) const;

  /// Once it is whole: why that is not all of the file; empty when it is. Main thread.
  UserText problem() const;

 private:
  struct CloseSpool {
    void operator()(std::FILE* file) const;
  };

  void decode(const std::stop_token& stopping);
  bool keep(std::span<const std::int16_t> samples);

  const std::filesystem::path m_file;
  std::unique_ptr<std::FILE, CloseSpool> m_spool;
  std::unique_ptr<StereoReader> m_reader;
  std::atomic<std::int64_t> m_frames = 0;
  std::atomic<bool> m_whole = false;
  std::atomic<int> m_writeError = 0;  ///< As in errno.
  std::jthread m_thread;              ///< Last, so that it ends before what it uses does.
};

}  // namespace korvel::platform
