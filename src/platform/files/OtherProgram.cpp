// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/OtherProgram.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/FileError.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBytesAtOnce = 1 << 16;
constexpr Phrase kCannotStart = phrase("Message", "cannot be started");

/// A file without a name. Not a pipe: neither side ever waits for the other, and nobody is killed
/// for writing to one who has ended.
class MemoryFile {
 public:
  explicit MemoryFile(const fs::path& program) : m_fd(::memfd_create("korvel", MFD_CLOEXEC)) {
    if (m_fd < 0) throw FileError(program, UserText(kCannotStart), errno);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { ::close(m_fd); }

  int number() const { return m_fd; }

  /// Leaves it to be read from its beginning; false when it does not take all.
  bool fill(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = ::write(m_fd, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::lseek(m_fd, 0, SEEK_SET) == 0;
  }

  std::string content() const {
    std::string bytes;
    std::string part(kBytesAtOnce, '\0');
    ssize_t count = 0;
    while ((count = ::pread(m_fd, part.data(), part.size(), static_cast<off_t>(bytes.size()))) > 0)
      bytes.append(part, 0, static_cast<std::size_t>(count));
    return bytes;
  }

 private:
  int m_fd;
};

pid_t start(const fs::path& program, std::vector<std::string> words, int input, int output) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  pid_t child = 0;
  const int failed =
      ::posix_spawn(&child, program.c_str(), &files, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&files);
  if (failed) throw FileError(program, UserText(kCannotStart), failed);
  return child;
}

int statusOf(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ProgramResult runProgram(const fs::path& program, const std::vector<std::string>& arguments,
                         std::string_view input) {
  const MemoryFile in(program);
  const MemoryFile out(program);
  if (!in.fill(input)) throw FileError(program, UserText(kCannotStart), errno);
  std::vector<std::string> words{program.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  const pid_t child = start(program, std::move(words), in.number(), out.number());
  const int status = statusOf(child);
  return {status, out.content()};
}

}  // namespace korvel::platform
