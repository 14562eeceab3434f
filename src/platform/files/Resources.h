// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// Finds the files that come with the program. The folders are searched in order, so that a
/// program in its build tree uses its own files and not those of an installed version.
class Resources {
 public:
  explicit Resources(std::vector<std::filesystem::path> folders);

  /// The folders of the running program: share/korvel beside its own folder, then korvel in the
  /// folders of $XDG_DATA_DIRS (default /usr/local/share:/usr/share).
  static Resources ofProgram();

  /// File "name", or "name.type" when a type is given; none when no folder has it.
  std::optional<std::filesystem::path> locate(std::string_view name,
                                              std::string_view type = {}) const;

  const std::vector<std::filesystem::path>& folders() const { return m_folders; }

 private:
  std::vector<std::filesystem::path> m_folders;
};

}  // namespace korvel::platform
