// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "platform/FileError.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& file, const std::string& doing, int code) {
  throw FileError(file, doing + ": " + std::generic_category().message(code));
}

/// An open file; errors name the file that the caller asked for, not the temporary one.
class Descriptor {
 public:
  Descriptor(const fs::path& opened, fs::path named, int flags, const std::string& doing)
      : m_named(std::move(named)), m_fd(::open(opened.c_str(), flags | O_CLOEXEC, 0666)) {
    if (m_fd < 0) fail(m_named, doing, errno);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { ::close(m_fd); }

  void refuseIrregular() const {
    struct stat status {};
    if (::fstat(m_fd, &status) != 0) fail(m_named, "cannot read", errno);
    if (S_ISDIR(status.st_mode)) throw FileError(m_named, "cannot read: it is a folder");
    if (!S_ISREG(status.st_mode)) throw FileError(m_named, "cannot read: it is not a plain file");
  }

  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = ::write(m_fd, bytes.data(), bytes.size());
      if (written >= 0) bytes.remove_prefix(static_cast<std::size_t>(written));
      if (written < 0 && errno != EINTR) fail(m_named, "cannot write", errno);
    }
  }

  /// Bytes read into the buffer; 0 at the end.
  std::size_t read(char* buffer, std::size_t size) const {
    ssize_t count = -1;
    do {
      count = ::read(m_fd, buffer, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) fail(m_named, "cannot read", errno);
    return static_cast<std::size_t>(count);
  }

  void keepModeOf(const fs::path& old) const {
    struct stat status {};
    if (::stat(old.c_str(), &status) == 0) ::fchmod(m_fd, status.st_mode & 07777);
  }

  void flush() const {
    if (::fsync(m_fd) != 0) fail(m_named, "cannot write", errno);
  }

 private:
  fs::path m_named;
  int m_fd;
};

/// Removes the temporary file unless it has become the real one.
class TemporaryName {
 public:
  explicit TemporaryName(fs::path name) : m_name(std::move(name)) {}
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;
  ~TemporaryName() {
    if (!m_name.empty()) ::unlink(m_name.c_str());
  }
  void keep() { m_name.clear(); }

 private:
  fs::path m_name;
};

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path throughLinks(const fs::path& file) {
  std::error_code unresolved;
  const fs::path target = fs::canonical(file, unresolved);
  return unresolved ? file : target;
}

/// A name of a few bytes beside the target, since the target's own may be as long as names can be.
fs::path temporaryBeside(const fs::path& target) {
  static unsigned count = 0;
  return folderOf(target) /
         (".korvel-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".tmp");
}

void flushFolder(const fs::path& target) {
  const Descriptor folder(folderOf(target), target, O_RDONLY | O_DIRECTORY, "cannot write");
  folder.flush();
}

/// Gives a file its name without replacing what has that name already; false then. File systems
/// that know no links can move it instead.
bool appearAs(const fs::path& temporary, const fs::path& file) {
  if (::link(temporary.c_str(), file.c_str()) == 0) return true;
  if (errno == EEXIST) return false;
  if (::renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno == EEXIST) return false;
  fail(file, "cannot write", errno);
}

fs::path homeFolder() {
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return home;
  const passwd* user = ::getpwuid(::getuid());
  if (!user || !user->pw_dir) throw FileError("~", "the user has no home folder");
  return user->pw_dir;
}

}  // namespace

void writeAtomically(const fs::path& file, std::string_view bytes) {
  const fs::path target = throughLinks(file);
  std::error_code unknown;
  if (fs::exists(target, unknown) && !fs::is_regular_file(target, unknown))
    throw FileError(file, "cannot write: it is not a plain file");
  const fs::path temporary = temporaryBeside(target);
  ::unlink(temporary.c_str());  // left by a process of the same number that was killed
  {
    const Descriptor out(temporary, file, O_WRONLY | O_CREAT | O_EXCL, "cannot write");
    TemporaryName name(temporary);
    out.keepModeOf(target);
    out.write(bytes);
    out.flush();
    if (::rename(temporary.c_str(), target.c_str()) != 0) fail(file, "cannot write", errno);
    name.keep();
  }
  flushFolder(target);
}

bool createAtomically(const fs::path& file, std::string_view bytes) {
  const fs::path temporary = temporaryBeside(file);
  ::unlink(temporary.c_str());
  const Descriptor out(temporary, file, O_WRONLY | O_CREAT | O_EXCL, "cannot write");
  const TemporaryName name(temporary);
  out.write(bytes);
  out.flush();
  if (!appearAs(temporary, file)) return false;
  flushFolder(file);
  return true;
}

std::string readWholeFile(const fs::path& file) {
  const Descriptor in(file, file, O_RDONLY | O_NONBLOCK, "cannot read");
  in.refuseIrregular();
  std::string bytes;
  std::array<char, 65536> buffer;
  while (const std::size_t count = in.read(buffer.data(), buffer.size()))
    bytes.append(buffer.data(), count);
  return bytes;
}

fs::path executableFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

fs::path userDataFolder(std::string_view appName) {
  const char* data = std::getenv("XDG_DATA_HOME");
  // A relative path is to be ignored, as the base directory convention has it.
  const fs::path base = data && *data == '/' ? fs::path(data) : homeFolder() / ".local" / "share";
  return base / appName;
}

}  // namespace korvel::platform
