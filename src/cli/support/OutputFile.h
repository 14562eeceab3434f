// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/NewFile.h"

namespace korvel::cli {

/// A file that a command is to write, for which the user may have allowed to replace one.
class OutputFile {
 public:
  /// Follows what is said of a file that cannot be written.
  static constexpr const char* kAdvice =
      "; nothing was written: make room, or choose a folder that you may write to";

  OutputFile(std::string name, bool replace);

  /// Looks whether the file could be written, before there is something to write. Throws CliError,
  /// also for a store of songs.
  void check() const;
  /// Throws CliError when one file is named twice: the second would replace the first or be
  /// refused.
  static void requireDifferent(std::vector<std::optional<std::string>> names);
  /// Throws CliError when the file is the one that is read.
  void requireOtherThan(const std::string& source) const;
  /// Writes all of the file or nothing of it. Throws CliError, and what was there before stays.
  void write(std::string_view bytes) const;
  /// The same by something that writes files itself: it is told the name and what becomes of a file
  /// of that name, and answers whether the new one appeared.
  using Writer = std::function<bool(const std::filesystem::path&, platform::Existing)>;
  void writeBy(const Writer& writer) const;

 private:
  [[noreturn]] void refuse() const;

  std::string m_name;
  bool m_replace;
};

}  // namespace korvel::cli
