// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

#include "workflow/session/QBCommand.h"

namespace korvel {

/// Writes files a part at each step, until there is nothing left to write. A file that cannot be
/// written is told in the log and ends the command. Cancelled, it takes back what it has written.
class WritingCommand : public QBCommand {
 public:
  void execute() final;
  void nextStep() final;
  void cancelAndDrop() final;
  platform::UserText fullTitle() const override { return typeAndName(); }

 protected:
  /// The place is the file or folder that the log names; the name, that of the list of jobs.
  WritingCommand(const platform::Phrase& type, const std::string& name,
                 std::filesystem::path place);
  ~WritingCommand() override;

  /// Writes the next part; false when there is none.
  virtual bool step() = 0;
  /// Lets go of what the steps needed. An unfinished file may go with it.
  virtual void release() = 0;
  /// Removes files that are there already.
  virtual void removeWritten() {}
  const std::filesystem::path& place() const { return m_place; }

 private:
  std::filesystem::path m_place;
};

}  // namespace korvel
