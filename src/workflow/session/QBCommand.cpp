// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/QBCommand.h"

#include "workflow/session/JobTurns.h"
#include "workflow/session/QBSession.h"

namespace korvel {

QBCommand::QBCommand() = default;

QBCommand::~QBCommand() = default;

void QBCommand::run() {
  prepare();
  execute();
  tearDown();
}

void QBCommand::runInBackground() {
  m_stepped = true;
  prepare();
  beginSteps();
}

void QBCommand::beginSteps() {
  m_timer = JobTurns::begin([this] {
    try {
      nextStep();
    } catch (...) {
      m_timer.reset();
      throw;
    }
  });
}

void QBCommand::stop() {
  m_timer.reset();
  tearDown();
}

platform::UserText QBCommand::typeAndName() const {
  constexpr platform::Phrase kOneAfterTheOther{"", "%1%2"};  // nothing to translate
  return {kOneAfterTheOther, m_type, m_name};
}

void QBCommand::appendOut(std::string_view text) { QBSession::session().addToLog(text); }

void QBCommand::concatAndPrintOut(std::string_view a, std::string_view b) {
  printOut(std::string(a).append(b));
}

}  // namespace korvel
