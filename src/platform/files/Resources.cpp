// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Resources.h"

#include <cstdlib>
#include <sstream>
#include <string>
#include <utility>

#include "platform/files/Files.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

std::string sharedFolders() {
  const char* folders = std::getenv("XDG_DATA_DIRS");
  return folders && *folders ? folders : "/usr/local/share:/usr/share";
}

}  // namespace

Resources::Resources(std::vector<fs::path> folders) : m_folders(std::move(folders)) {}

Resources Resources::ofProgram() {
  std::vector<fs::path> folders{executableFolder().parent_path() / "share" / "korvel"};
  std::istringstream list(sharedFolders());
  for (std::string folder; std::getline(list, folder, ':');)
    if (folder.starts_with('/')) folders.push_back(fs::path(folder) / "korvel");
  return Resources(std::move(folders));
}

std::optional<fs::path> Resources::locate(std::string_view name, std::string_view type) const {
  std::string file(name);
  if (!type.empty()) file.append(".").append(type);
  for (const fs::path& folder : m_folders) {
    std::error_code unreadable;
    if (fs::is_regular_file(folder / file, unreadable)) return folder / file;
  }
  return std::nullopt;
}

}  // namespace korvel::platform
