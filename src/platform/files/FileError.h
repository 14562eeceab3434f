// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "platform/text/UserError.h"

namespace korvel::platform {

/// A file or folder that cannot be read or written. The text names it and says what is wrong.
class FileError : public UserError {
 public:
  // What is not done, for the errors of the system.
  static constexpr Phrase kCannotRead = phrase("Message", "cannot read");
  static constexpr Phrase kCannotWrite = phrase("Message", "cannot write");

  FileError(std::filesystem::path file, const UserText& problem);
  /// code: as in errno.
  FileError(std::filesystem::path file, const UserText& doing, int code);

  const std::filesystem::path& file() const { return m_file; }

 private:
  std::filesystem::path m_file;
};

}  // namespace korvel::platform
