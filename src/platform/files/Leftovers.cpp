// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Leftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBegin = ".korvel-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kRandomDigits = 16;

bool isOfOurs(const std::string& name) {
  const std::string_view digits =
      std::string_view(name).substr(std::min(kBegin.size(), name.size()));
  return name.size() == kBegin.size() + kRandomDigits + kEnd.size() && name.starts_with(kBegin) &&
         name.ends_with(kEnd) && digits.find_first_not_of(kDigits) == kRandomDigits;
}

/// Unless somebody else's or still being written.
void removeAbandoned(const fs::path& file) {
  const int opened = ::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (opened < 0) return;
  struct stat status {};
  const bool isOwn =
      ::fstat(opened, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
  if (isOwn && ::flock(opened, LOCK_EX | LOCK_NB) == 0) ::unlink(file.c_str());
  ::close(opened);
}

}  // namespace

fs::path temporaryBeside(const fs::path& file) {
  static std::random_device random;
  std::string name(kBegin);
  for (std::size_t i = 0; i < kRandomDigits; ++i) name += kDigits[random() % kDigits.size()];
  return file.parent_path() / name.append(kEnd);
}

void sweepLeftovers(const fs::path& folder) {
  static std::set<fs::path> swept;
  std::error_code unreadable;
  if (!swept.insert(fs::absolute(folder, unreadable)).second) return;
  for (const auto& entry : fs::directory_iterator(folder, unreadable))
    if (isOfOurs(entry.path().filename())) removeAbandoned(entry.path());
}

}  // namespace korvel::platform
