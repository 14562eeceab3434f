// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// A new folder beside what the user exports, for text files that belong together. Unless it is
/// kept, it goes with its files when this goes.
class ExportFolder {
 public:
  /// Named after the title, with a number behind where there is such a folder or file. Throws
  /// platform::FileError.
  explicit ExportFolder(const std::string& title);
  ExportFolder(const ExportFolder&) = delete;
  ExportFolder& operator=(const ExportFolder&) = delete;
  ~ExportFolder();

  /// Throws platform::FileError.
  void write(const std::string& title, std::string_view text);
  /// Its files are complete, and the log names them.
  void keep();

 private:
  std::filesystem::path m_folder;
  std::vector<std::filesystem::path> m_files;
  bool m_kept = false;
};

}  // namespace korvel
