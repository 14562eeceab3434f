// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace korvel::platform {

/// A file or folder that cannot be read or written. what() names it and says what is wrong.
class FileError : public std::runtime_error {
 public:
  FileError(std::filesystem::path file, const std::string& problem)
      : std::runtime_error(file.string() + ": " + problem), m_file(std::move(file)) {}

  /// code: as in errno.
  FileError(std::filesystem::path file, const std::string& doing, int code);

  const std::filesystem::path& file() const { return m_file; }

 private:
  std::filesystem::path m_file;
};

}  // namespace korvel::platform
