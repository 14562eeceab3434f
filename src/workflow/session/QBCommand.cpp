// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/QBCommand.h"

#include "workflow/session/JobTurns.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

constexpr platform::Phrase kOneAfterTheOther{"", "%1%2"};  // nothing to translate

}  // namespace

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

QBSession& QBCommand::session() { return QBSession::session(); }

platform::UserText QBCommand::typeAndName() const { return {kOneAfterTheOther, m_type, m_name}; }

void QBCommand::appendOut(const platform::UserText& text) { session().addToLog(text); }

void QBCommand::concatAndPrintOut(const platform::UserText& a, const platform::UserText& b) {
  printOut({kOneAfterTheOther, a, b});
}

}  // namespace korvel
