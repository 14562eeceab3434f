// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/CalibrateInstrument.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "audio/MonoTrack.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "workflow/hearing/CalibrateCommand.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

struct NewInstrument {
  std::string file;
  std::string name;
};

void printHeardNotes(const CalibrateCommand& heard) {
  for (const auto& note : heard.notes())
    Console::attached().print(noteName(note.midi) + "  " +
                              std::to_string(std::lround(note.decibels)) + " dB\n");
}

std::string missingNotes(const CalibrateCommand& heard) {
  std::string missing;
  for (const CalibrationNote& note : notesToCalibrate(*heard.calibration().tuning()))
    if (std::ranges::find(heard.notes(), note.midi, &CalibrateCommand::HeardNote::midi) ==
        heard.notes().end())
      missing += ' ' + noteName(note.midi);
  return missing;
}

void calibrateInstrument(const std::string& file, const std::string& name) {
  requireSound(file);
  CalibrateCommand heard(std::make_shared<MonoTrack>(file),
                         std::filesystem::path(file).filename().string(),
                         *QBTabMgr::db().selectedTuning());
  heard.run();
  printHeardNotes(heard);
  if (const auto problem = heard.problem()) throw CliError(file + ": " + problem->english());
  addInstrument(name, heard.calibration());
  const std::string missing = missingNotes(heard);
  if (!missing.empty()) Console::attached().note("It becomes better with" + missing + ".");
}

}  // namespace

void addCalibrateInstrument(Command& instruments) {
  Command& command = instruments.command(
      "calibrate",
      "Add an instrument from a recording of single notes: each string open and at fret 7, with "
      "silence between them");
  auto& options = command.own<NewInstrument>();
  command.option("FILE", options.file, "Sound file").required().shownAs("");
  command.option("--name", options.name, "Name of the instrument").required();
  command.does([&options] { calibrateInstrument(options.file, options.name); });
}

}  // namespace korvel::cli
