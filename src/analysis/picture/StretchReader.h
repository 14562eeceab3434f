// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/media/MonoReader.h"

namespace korvel {

/// Reads stretches of a recording's file as `platform::MonoReader` decodes it. One that begins
/// within the one before or shortly behind it is read on from there.
class StretchReader {
 public:
  explicit StretchReader(std::filesystem::path file) : m_file(std::move(file)) {}

  /// The samples from `first` on, which may lie before the beginning; 0 outside of the recording.
  /// stopped: asked every few hundredths of a second; once it says so, the answer is false and the
  /// samples mean nothing. Throws platform::MediaError for a file that cannot be read or decoded.
  bool read(std::int64_t first, std::span<float> samples, const std::function<bool()>& stopped);

 private:
  void open();
  void goTo(std::int64_t first);
  bool readOn();
  void dropBefore(std::int64_t first);
  std::int64_t end() const { return m_first + static_cast<std::int64_t>(m_samples.size()); }

  std::filesystem::path m_file;
  std::optional<platform::MonoReader> m_reader;
  std::int64_t m_first = 0;  ///< Of the samples that are kept.
  std::vector<float> m_samples;
};

}  // namespace korvel
