// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/InstrumentCommands.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

#include "audio/MonoTrack.h"
#include "cli/support/CliError.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "model/instruments/QBInstrument.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "workflow/hearing/CalibrateCommand.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

void printLine(const std::string& line) { Console::attached().print(line + '\n'); }

/// As it is chosen: with a number where others before it have the same name.
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

void printNotes(const CalibrateCommand& heard) {
  for (const auto& note : heard.notes())
    printLine(noteName(note.midi) + "  " + std::to_string(std::lround(note.decibels)) + " dB");
}

std::string missingNotes(const CalibrateCommand& heard) {
  std::string missing;
  for (const CalibrationNote& note : notesToCalibrate())
    if (std::ranges::find(heard.notes(), note.midi, &CalibrateCommand::HeardNote::midi) ==
        heard.notes().end())
      missing += ' ' + noteName(note.midi);
  return missing;
}

}  // namespace

void listInstruments() {
  for (const auto& instrument : QBTabMgr::db().instruments())
    printLine((instrument->active() ? "* " : "  ") + choiceOf(*instrument));
}

void selectInstrumentNamed(const std::string& name) { selectInstrument(chooseInstrument(name)); }

void importInstrumentFile(const std::string& file) {
  if (!std::filesystem::is_regular_file(file)) throw CliError(file + ": there is no such file");
  printLine(choiceOf(*importInstrument(file)));
}

void exportInstrument(const std::string& name, const std::string& file, bool replace) {
  const OutputFile output(file, replace);
  output.check();
  output.write(definitionOf(chooseInstrument(name)));
}

void calibrateInstrument(const std::string& file, const std::string& name) {
  requireSound(file);
  CalibrateCommand heard(std::make_shared<MonoTrack>(file),
                         std::filesystem::path(file).filename().string());
  heard.run();
  printNotes(heard);
  if (const auto problem = heard.problem()) throw CliError(file + ": " + *problem);
  addInstrument(name, heard.calibration());
  const std::string missing = missingNotes(heard);
  if (!missing.empty()) Console::attached().addLogText("It becomes better with" + missing + ".");
}

}  // namespace korvel::cli
