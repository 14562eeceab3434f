// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/InstrumentChoice.h"

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "model/instruments/QBInstrument.h"
#include "model/store/QBTabMgr.h"

namespace korvel::cli {

void needInstrument(Command& command, std::string& name) {
  command.option("INSTRUMENT", name, "Its name").required().shownAs("");
}

std::string choiceOf(const QBInstrument& instrument) {
  int same = 1;
  for (const auto& each : QBTabMgr::db().instruments()) {
    if (each == &instrument) break;
    if (each->name() == instrument.name()) ++same;
  }
  return instrument.name() + (same > 1 ? '#' + std::to_string(same) : "");
}

QBInstrument& chooseInstrument(const std::string& name) {
  std::string known;
  for (const auto& instrument : QBTabMgr::db().instruments()) {
    const std::string choice = choiceOf(*instrument);
    if (choice == name) return *instrument;
    known += (known.empty() ? "\"" : ", \"") + choice + '"';
  }
  throw CliError("no instrument \"" + name + "\"; there is " + (known.empty() ? "none" : known));
}

}  // namespace korvel::cli
