// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-calibrate: makes an instrument's definition file from recordings of single notes.
#include <stdlib.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis/instrument/Calibration.h"
#include "analysis/spectrum/QBFFT.h"
#include "audio/MonoTrack.h"
#include "audio/Samples16.h"
#include "export/xml/DefinitionFile.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/KorvelModel.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "workflow/hearing/SoundCheck.h"

namespace {

using namespace korvel;

constexpr int kWrongUsage = 2;

struct Options {
  std::string name;
  // docs/instrument.md has how these were chosen.
  float detailLevel = Calibration::kDetailLevel;
  double smallestShare = Calibration::kSmallestShare;
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

/// Blocks of the whole recording, as an import of a file of one channel at 44.1 kHz cuts them.
std::vector<std::vector<HeardTone>> tonesOf(const Calibration& calibration,
                                            const std::filesystem::path& file) {
  requireSound(file);
  MonoTrack track(file);
  track.startRecord(0.0F);
  std::vector<std::int16_t> samples;
  while (!track.eof()) append16(samples, track.readSamples());
  std::vector<std::vector<HeardTone>> blocks;
  for (std::size_t begin = 0; begin < samples.size(); begin += QBFFT::m_numSamples) {
    const std::size_t size = std::min(QBFFT::m_numSamples, samples.size() - begin);
    blocks.push_back(calibration.tonesIn(std::span(samples).subspan(begin, size)));
  }
  return blocks;
}

void addNote(Calibration& calibration, const std::filesystem::path& file, int midi) {
  if (!calibration.isReached(midi))
    throw platform::FileError(
        file, platform::UserText::verbatim("no string reaches the note " + std::to_string(midi)));
  bool heard = false;
  for (const auto& tones : tonesOf(calibration, file)) {
    if (tones.empty()) continue;
    calibration.addBlock(tones, midi);
    heard = true;
  }
  if (!heard)
    throw platform::FileError(
        file, platform::UserText::verbatim("nothing is loud enough to be heard in it"));
}

void addRecording(Calibration& calibration, const std::string& argument) {
  const auto sign = argument.find('=');
  const auto note = midiNote(argument.substr(0, sign));
  if (sign == std::string::npos || !note)
    throw CLI::ValidationError("NOTE=FILE", "\"" + argument + "\" names no note");
  addNote(calibration, argument.substr(sign + 1), *note);
}

QBInstrument& measured(const Options& options) {
  Calibration calibration(*QBTabMgr::db().selectedTuning());
  for (const std::string& note : options.notes) addRecording(calibration, note);
  const auto unknown = calibration.unknownStrings();
  if (!unknown.empty())
    throw std::runtime_error("no recording holds enough of string " +
                             std::to_string(kStrings - unknown.front()));
  return calibration.createInstrument(QBTabMgr::db(), options.name, options.detailLevel,
                                      options.smallestShare);
}

void calibrate(const Options& options) {
  const ScratchStore store;
  const std::string text = definitionText(measured(options));
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
  app.add_option("NOTE=FILE", options.notes, "Notes, such as E2, F#2 or 40, and their recordings")
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
