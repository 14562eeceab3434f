// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

namespace korvel::platform {

/// Copies the sound of a recording into a FLAC file: of its rate and channels, with 16 bits, or 24
/// where the recording has more. Decoded it has the samples that the recording has. The file
/// appears when it is complete, for its owner only to read. All throw FileError: for a full disk, a
/// recording that cannot be decoded (any further), and what FLAC does not know, as nine channels.
class FlacCopy {
 public:
  FlacCopy(const std::filesystem::path& recording, const std::filesystem::path& file);
  FlacCopy(const FlacCopy&) = delete;
  FlacCopy& operator=(const FlacCopy&) = delete;
  ~FlacCopy();

  /// Copies some milliseconds' work of it; false at the end.
  bool step();
  /// Seconds of the recording that are copied.
  double seconds() const;
  /// Once only, at the end.
  void finish();

 private:
  class Copying;
  std::unique_ptr<Copying> m_copying;
};

}  // namespace korvel::platform
