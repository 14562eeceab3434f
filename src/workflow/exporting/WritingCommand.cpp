// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/WritingCommand.h"

#include "platform/files/FileError.h"

namespace korvel {

WritingCommand::WritingCommand(const platform::Phrase& type, const std::string& name,
                               std::filesystem::path place)
    : m_place(std::move(place)) {
  m_type = type;
  m_name = ": " + name;
}

WritingCommand::~WritingCommand() = default;

void WritingCommand::execute() {
  while (step()) continue;
}

void WritingCommand::nextStep() {
  try {
    if (!step()) stop();
  } catch (const platform::FileError& problem) {
    abandonSteps();
    release();
    printOut(problem.text());
  }
}

void WritingCommand::cancelAndDrop() {
  abandonSteps();
  release();
  removeWritten();
  printOut({platform::phrase("Log", "%1: cancelled, nothing was written."), m_place.string()});
}

}  // namespace korvel
