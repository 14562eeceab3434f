// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

#include <filesystem>

namespace korvel::test {

/// Makes a folder and its files such that nobody may write them, not even the superuser, whose
/// files are somebody else's meanwhile.
class ReadOnlyFolder {
 public:
  explicit ReadOnlyFolder(std::filesystem::path folder) : m_folder(std::move(folder)) {
    permit(std::filesystem::perm_options::remove);
    if (::geteuid() == 0) ::setfsuid(kNobody);
  }
  ReadOnlyFolder(const ReadOnlyFolder&) = delete;
  ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;
  ~ReadOnlyFolder() {
    ::setfsuid(::geteuid());
    permit(std::filesystem::perm_options::add);
  }

 private:
  static constexpr uid_t kNobody = 65534;

  void permit(std::filesystem::perm_options change) const {
    using std::filesystem::perms;
    constexpr perms kRead = perms::owner_read | perms::group_read | perms::others_read;
    constexpr perms kEnter = perms::owner_exec | perms::group_exec | perms::others_exec;
    std::filesystem::permissions(m_folder, kRead | kEnter, std::filesystem::perm_options::add);
    for (const auto& file : std::filesystem::directory_iterator(m_folder)) {
      std::filesystem::permissions(file, kRead, std::filesystem::perm_options::add);
      std::filesystem::permissions(file, kWrite, change);
    }
    std::filesystem::permissions(m_folder, kWrite, change);
  }
  static constexpr auto kWrite = std::filesystem::perms::owner_write |
                                 std::filesystem::perms::group_write |
                                 std::filesystem::perms::others_write;

  std::filesystem::path m_folder;
};

}  // namespace korvel::test
