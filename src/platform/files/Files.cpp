// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>

#include "platform/files/Descriptor.h"
#include "platform/files/FileError.h"
#include "platform/files/NewFile.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

fs::path homeFolder() {
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return home;
  const passwd* user = ::getpwuid(::getuid());
  if (!user || !user->pw_dir)
    throw FileError("~", phrase("Message", "the user has no home folder"));
  return user->pw_dir;
}

/// How much memory is worth asking for before a file is read; what it says itself may be wrong.
std::size_t lengthToExpect(const fs::path& file) {
  constexpr std::uintmax_t kMost = 64U << 20U;
  std::error_code unknown;
  const std::uintmax_t length = fs::file_size(file, unknown);
  return unknown ? 0 : static_cast<std::size_t>(std::min(length, kMost));
}

}  // namespace

void writeAtomically(const fs::path& file, std::string_view bytes) {
  NewFile out(file, Existing::replaced);
  out.write(bytes);
  out.appear();
}

bool createAtomically(const fs::path& file, std::string_view bytes, Readers readers) {
  NewFile out(file, Existing::kept, readers);
  out.write(bytes);
  return out.appear();
}

bool isThere(const std::filesystem::path& file) {
  std::error_code error;
  const bool there = std::filesystem::exists(file, error);
  if (!error) return there;
  throw FileError(
      file,
      UserText(
          phrase("Message",
                 "cannot be reached: %1; check the rights of its folders, or choose another place"),
          error.message()));
}

void makePrivateFolders(const fs::path& folder) {
  std::error_code unknown;
  if (folder.empty() || fs::is_directory(folder, unknown)) return;
  makePrivateFolders(folder.parent_path());
  if (::mkdir(folder.c_str(), 0700) != 0) makeFolders(folder);  // which says why
}

void makeFolders(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error)
    throw FileError(
        folder,
        UserText(phrase("Message",
                        "the folder cannot be made: %1; check the rights of the one that it is in"),
                 error.message()));
}

std::string readWholeFile(const fs::path& file) {
  const Descriptor in(file, file, O_RDONLY | O_NONBLOCK, FileError::kCannotRead);
  in.refuseIrregular();
  std::string bytes;
  bytes.reserve(lengthToExpect(file));
  std::array<char, 65536> buffer;
  while (const std::size_t count = in.read(buffer.data(), buffer.size()))
    bytes.append(buffer.data(), count);
  return bytes;
}

std::string bytesOrNone(const fs::path& file) {
  try {
    return readWholeFile(file);
  } catch (const FileError&) {
    return {};
  }
}

bool isStore(const fs::path& file) {
  constexpr std::string_view kBeginning = "SQLite format 3";
  std::error_code unknown;
  if (!fs::is_regular_file(file, unknown))
    return false;  // opening a pipe would wait for its writer
  std::string beginning(kBeginning.size(), '\0');
  std::ifstream(file, std::ios::binary)
      .read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
  return beginning == kBeginning;
}

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code notBoth;
  if (fs::equivalent(a, b, notBoth)) return true;
  std::error_code unknown;
  return fs::weakly_canonical(fs::absolute(a, unknown), unknown) ==
         fs::weakly_canonical(fs::absolute(b, unknown), unknown);
}

fs::path executableFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

fs::path userDataFolder(std::string_view appName) {
  const char* data = std::getenv("XDG_DATA_HOME");
  // A relative path is to be ignored, as the base directory convention has it.
  const fs::path base = data && *data == '/' ? fs::path(data) : homeFolder() / ".local" / "share";
  return base / appName;
}

}  // namespace korvel::platform
