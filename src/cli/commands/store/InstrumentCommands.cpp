// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/InstrumentCommands.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "audio/MonoTrack.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "platform/files/Files.h"
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
  for (const CalibrationNote& note : notesToCalibrate(*heard.calibration().tuning()))
    if (std::ranges::find(heard.notes(), note.midi, &CalibrateCommand::HeardNote::midi) ==
        heard.notes().end())
      missing += ' ' + noteName(note.midi);
  return missing;
}

/// The active one is marked with a star.
void listInstruments() {
  for (const auto& instrument : QBTabMgr::db().instruments())
    printLine((instrument->active() ? "* " : "  ") + choiceOf(*instrument));
}

void selectInstrumentNamed(const std::string& name) { selectInstrument(chooseInstrument(name)); }

/// It becomes the selected one.
void importInstrumentFile(const std::string& file) {
  if (!platform::isThere(file)) throw CliError(file + ": there is no such file");
  printLine(choiceOf(*importInstrument(file)));
}

void exportInstrument(const std::string& name, const std::string& file, bool replace) {
  const OutputFile output(file, replace);
  output.check();
  output.write(definitionOf(chooseInstrument(name)));
}

/// Prints which notes were heard.
void calibrateInstrument(const std::string& file, const std::string& name) {
  requireSound(file);
  CalibrateCommand heard(std::make_shared<MonoTrack>(file),
                         std::filesystem::path(file).filename().string(),
                         *QBTabMgr::db().selectedTuning());
  heard.run();
  printNotes(heard);
  if (const auto problem = heard.problem()) throw CliError(file + ": " + problem->english());
  addInstrument(name, heard.calibration());
  const std::string missing = missingNotes(heard);
  if (!missing.empty()) Console::attached().note("It becomes better with" + missing + ".");
}

struct InstrumentWords {
  std::string name;
  std::string newName;
  std::string file;
  bool force = false;
};

void addName(Command& command, InstrumentWords& words) {
  command.option("INSTRUMENT", words.name, "Its name").required().shownAs("");
}

void addFile(Command& command, InstrumentWords& words, const char* help) {
  command.option("FILE", words.file, help).required().shownAs("");
}

void addSelect(Command& instruments) {
  Command& command = instruments.command("select", "Select the instrument that confirms tones");
  auto& words = command.own<InstrumentWords>();
  addName(command, words);
  command.does([&words] { selectInstrumentNamed(words.name); });
}

void addImportOfOne(Command& instruments) {
  Command& command = instruments.command("import", "Add an instrument from its definition file");
  auto& words = command.own<InstrumentWords>();
  addFile(command, words, "Definition file");
  command.does([&words] { importInstrumentFile(words.file); });
}

void addExportOfOne(Command& instruments) {
  Command& command = instruments.command("export", "Write the definition file of an instrument");
  auto& words = command.own<InstrumentWords>();
  addName(command, words);
  addFile(command, words, "Definition file");
  command.flag("--force", words.force, "Replace a file that is there already");
  command.does([&words] { exportInstrument(words.name, words.file, words.force); });
}

void addRename(Command& instruments) {
  Command& command = instruments.command("rename", "Rename an instrument");
  auto& words = command.own<InstrumentWords>();
  addName(command, words);
  command.option("NAME", words.newName, "Its new name").required().shownAs("");
  command.does([&words] { renameInstrument(chooseInstrument(words.name), words.newName); });
}

void addDelete(Command& instruments) {
  Command& command = instruments.command("delete", "Delete an instrument, but not the only one");
  auto& words = command.own<InstrumentWords>();
  addName(command, words);
  command.does([&words] { deleteInstrument(chooseInstrument(words.name)); });
}

void addCalibrate(Command& instruments) {
  Command& command = instruments.command(
      "calibrate",
      "Add an instrument from a recording of single notes: each string open and at fret 7, with "
      "silence between them");
  auto& words = command.own<InstrumentWords>();
  addFile(command, words, "Sound file");
  command.option("--name", words.name, "Name of the instrument").required();
  command.does([&words] { calibrateInstrument(words.file, words.name); });
}

}  // namespace

void addInstruments(Command& tool) {
  Command& instruments =
      tool.command("instruments", "List the instruments of the classic detection, or change them");
  instruments.does(listInstruments);
  addSelect(instruments);
  addImportOfOne(instruments);
  addExportOfOne(instruments);
  addRename(instruments);
  addDelete(instruments);
  addCalibrate(instruments);
}

}  // namespace korvel::cli
