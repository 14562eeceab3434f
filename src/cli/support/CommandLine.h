// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/support/Command.h"

namespace korvel::cli {

/// The command line of a tool: reads its words into the options of its commands. Each command
/// describes itself to `root`; the order is that of the help.
class CommandLine {
 public:
  CommandLine(const std::string& description, const std::string& name);
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;
  ~CommandLine();

  /// The tool itself: what stands before any command.
  Command& root() { return m_root; }
  /// Follows the list of commands in the help.
  void setFooter(const std::string& footer);

  /// Answers the exit status when nothing is to be run: the help was printed, or what is wrong.
  std::optional<int> read(int argc, char** argv);
  /// The command to run, once the line was read.
  const Command& chosen() const { return *m_chosen; }

 private:
  const Command* m_chosen = nullptr;
  std::unique_ptr<CLI::App> m_app;
  Command m_root;
};

}  // namespace korvel::cli
