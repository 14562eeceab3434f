// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <set>
#include <utility>

#include "platform/files/FileError.h"

namespace korvel::platform {

/// A SoundFont that cannot be played, or that was not found. The text says what to do.
class SoundFontError : public FileError {
 public:
  using FileError::FileError;
};

/// What a SoundFont has in it: programs in banks. Reads the file's directory only.
class SoundFontFile {
 public:
  /// Throws SoundFontError when the file cannot be read, is no SoundFont, or is cut short.
  explicit SoundFontFile(std::filesystem::path path);

  const std::filesystem::path& path() const { return m_path; }
  bool has(int bank, int program) const { return m_programs.contains({bank, program}); }

 private:
  std::filesystem::path m_path;
  std::set<std::pair<int, int>> m_programs;
};

}  // namespace korvel::platform
