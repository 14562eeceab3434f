// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/TuningCommands.h"

#include <array>

#include "cli/support/CliError.h"
#include "cli/support/Console.h"
#include "cli/support/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "music/NoteName.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

struct Known {
  const char* name;
  KnownTuning tuning;
};

constexpr std::array kKnown{Known{"Standard", KnownTuning::standard},
                            Known{"Drop D", KnownTuning::dropD},
                            Known{"Open G", KnownTuning::openG}};

KnownTuning knownTuning(const std::string& name) {
  for (const Known& each : kKnown)
    if (each.name == name) return each.tuning;
  throw CliError(
      "no tuning begins as \"" + name +
      "\"; there is \"Standard\", \"Drop D\" and \"Open G\", or --strings with six notes");
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

QBTuning* made(const NewTuning& wanted) {
  if (!wanted.notes.empty()) return newTuning(*wanted.name, pitchesNamed(wanted.notes));
  return newTuning(knownTuning(wanted.like), wanted.name);
}

}  // namespace

void selectTuningNamed(const std::string& name) { selectTuning(chooseTuning(name)); }

void addTuning(const NewTuning& tuning) { Console::attached().print(made(tuning)->descr() + '\n'); }

}  // namespace korvel::cli
