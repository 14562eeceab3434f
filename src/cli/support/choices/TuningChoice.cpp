// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/TuningChoice.h"

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"

namespace korvel::cli {

void needTuning(Command& command, std::string& name) {
  command.option("TUNING", name, "Its name").required().shownAs("");
}

QBTuning& chooseTuning(const std::string& name) {
  std::string known;
  for (const auto& tuning : QBTabMgr::db().tunings()) {
    if (tuning->descr() == name) return *tuning;
    known += (known.empty() ? "\"" : ", \"") + tuning->descr() + '"';
  }
  throw CliError("no tuning \"" + name + "\"; there is " + known);
}

OpenPitches pitchesNamed(const std::vector<std::string>& notes) {
  OpenPitches pitches{};
  for (std::size_t string = 0; string < pitches.size(); ++string) {
    const auto pitch = midiNote(notes.at(string));
    if (!pitch) throw CliError(notes.at(string) + ": is no note; name notes such as E2 or F#3");
    pitches.at(string) = *pitch;
  }
  return pitches;
}

}  // namespace korvel::cli
