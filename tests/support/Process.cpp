// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "support/store/ScratchFolder.h"

namespace korvel::test {
namespace {

pid_t start(const std::vector<std::string>& command, const std::string& out,
            const std::string& err) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), kFlags, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), kFlags, 0600);
  std::vector<std::string> words = command;
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t pid = 0;
  const int failed = posix_spawnp(&pid, arguments[0], &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failed) throw std::runtime_error("cannot start " + command.at(0));
  return pid;
}

int waitFor(pid_t pid) {
  int status = 0;
  ::waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

Outcome runProgram(const std::vector<std::string>& command) {
  const ScratchFolder folder;
  const int status = waitFor(start(command, folder.file("out"), folder.file("err")));
  return {status, readFile(folder.file("out")), readFile(folder.file("err"))};
}

Running::Running(const std::vector<std::string>& command)
    : m_pid(start(command, "/dev/null", "/dev/null")) {}

void Running::kill() { ::kill(m_pid, SIGKILL); }

int Running::wait() { return waitFor(m_pid); }

}  // namespace korvel::test
