// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-calibrate: makes an instrument's definition file from recordings of single notes.
#include <stdlib.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "calibrate/Calibration.h"
#include "calibrate/DefinitionFile.h"
#include "calibrate/NoteName.h"
#include "model/KorvelModel.h"
#include "model/QBInstrument.h"
#include "model/QBSettings.h"
#include "model/QBTabMgr.h"
#include "model/QBTuning.h"
#include "platform/Files.h"

namespace {

using namespace korvel;

constexpr int kWrongUsage = 2;

struct Options {
  std::string name;
  // Both were chosen by measuring how well detection does with them; docs/instrument.md has how.
  float detailLevel = 0.85F;
  double smallestShare = 0.2;
  std::string output;
  std::vector<std::string> notes;
};

/// A store for the time of the measurement; nothing is ever saved in it.
class ScratchStore {
 public:
  ScratchStore() : m_folder((std::filesystem::temp_directory_path() / "korvel-XXXXXX").string()) {
    if (!::mkdtemp(m_folder.data())) throw std::runtime_error(m_folder + ": cannot be made");
    const std::string store = m_folder + "/Korvel.sqlite";
    storeFile(store).create();
    QBTabMgr::setStorePath(store);
    tune(QBTabMgr::db());
  }
  ScratchStore(const ScratchStore&) = delete;
  ScratchStore& operator=(const ScratchStore&) = delete;
  ~ScratchStore() {
    QBTabMgr::clearDb();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }

 private:
  static void tune(QBTabMgr& db) {
    QBTuning* standard = db.createTuning("Standard", 1);
    standard->createStandardStrings();
    db.createSettings("./");
    db.loadSettings();
    db.selectTuning(standard);
  }

  std::string m_folder;
};

void addRecording(tools::Calibration& calibration, const std::string& argument) {
  const auto sign = argument.find('=');
  const auto note = tools::midiNote(argument.substr(0, sign));
  if (sign == std::string::npos || !note)
    throw CLI::ValidationError("NOTE=FILE", "\"" + argument + "\" names no note");
  calibration.addNote(argument.substr(sign + 1), *note);
}

void calibrate(const Options& options) {
  const ScratchStore store;
  tools::Calibration calibration(options.name, options.detailLevel);
  for (const std::string& note : options.notes) addRecording(calibration, note);
  const std::string text = tools::definitionText(calibration.finish(options.smallestShare));
  if (options.output.empty())
    std::cout << text;
  else
    platform::writeAtomically(options.output, text);
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  CLI::App app("Makes an instrument's definition file from recordings of single notes.",
               "korvel-calibrate");
  app.add_option("--name", options.name, "Name of the instrument")->required();
  app.add_option("--detail-level", options.detailLevel,
                 "Share of a string's hits that a tone must find to be kept")
      ->check(CLI::Range(0.0, 1.0))
      ->capture_default_str();
  app.add_option("--min-share", options.smallestShare,
                 "Share of blocks in which an overtone must be heard to count")
      ->check(CLI::Range(0.0, 1.0))
      ->capture_default_str();
  app.add_option("-o,--output", options.output, "Definition file (default: standard output)");
  app.add_option("NOTE=FILE", options.notes,
                 "Notes, such as E2, F#2 or 40, and their recordings, 44.1 kHz mono")
      ->required()
      ->type_name("");
  try {
    app.parse(argc, argv);
    calibrate(options);
    return EXIT_SUCCESS;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? EXIT_SUCCESS : kWrongUsage;
  } catch (const std::exception& error) {
    std::cerr << "korvel-calibrate: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
