// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/TuningChoice.h"

#include <algorithm>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"

namespace korvel::cli {
namespace {

bool isStored(const std::string& tuning) {
  const auto isNamed = [&](const auto& each) { return each->descr() == tuning; };
  return std::ranges::any_of(QBTabMgr::db().tunings(), isNamed);
}

}  // namespace

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

QBTuning& tuningToPlayIn(const std::string& name) {
  if (!isStored(name))
    for (const KnownTuning each : knownTunings())
      if (nameOf(each) == name) return *newTuning(each, name);
  return chooseTuning(name);
}

OpenPitches stringsOfTuning(const std::string& tuning) {
  if (!isStored(tuning))
    for (const OpenPitches& known : pitchesOfKnownTunings())
      if (nameOfTuning(known) == tuning) return known;
  return chooseTuning(tuning).openStrings().pitches();
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
