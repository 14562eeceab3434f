// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <filesystem>
#include <optional>
#include <span>

#include "audio/QBSampleSource.h"
#include "platform/media/MonoReader.h"

namespace korvel {

/// The first sound track of a media file as one channel at 44100 samples a second, whatever the
/// file's own rate and channels: for what hears a recording as a whole. It is read slice by slice
/// and never held as a whole. What is wrong with a file becomes a line of the log, and the source
/// is at its end at once.
///
/// It may be read by another thread than that which starts it, one at a time. Meanwhile every
/// thread may ask how far it is, and stop it.
class MonoTrack final : public QBSampleSource {
 public:
  explicit MonoTrack(std::filesystem::path file);

  /// Opens the file anew. The volume has no meaning for a file.
  void startRecord(float volume) override;
  std::span<const float> readSamples() override;
  bool eof() const override { return !isReading(); }
  bool isReading() const override { return m_reading && !m_stopped; }
  /// How much of the file has been read; 1 once there is nothing to read.
  double progress() const override;
  void stopRecord() override { m_stopped = true; }

 private:
  void createReader(const platform::MediaAsset& asset, const platform::MediaTrack& sound);

  std::filesystem::path m_file;
  std::optional<platform::MonoReader> m_reader;
  std::atomic<bool> m_reading = false;  ///< The reader has more.
  std::atomic<bool> m_stopped = false;
  std::atomic<double> m_progress = 0;  ///< Of the reader.
};

}  // namespace korvel
