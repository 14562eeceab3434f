// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-transcribe: what the import hears in recordings, with the times at which it hears it. A
// song of the classic detection keeps no times, as blocks without tones leave nothing behind in it.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/chords/PreciseAnalyser.h"
#include "analysis/chords/QBChordAnalyserGame.h"
#include "analysis/instrument/QBMusicXMLParser.h"
#include "audio/MonoTrack.h"
#include "audio/QBMediaTrack.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/media/MediaAsset.h"
#include "platform/sound/SampleRate.h"
#include "recording/PreciseRecorder.h"
#include "recording/QBChordRecorder.h"
#include "support/store/ScratchStore.h"
#include "workflow/session/StoreSeeding.h"

namespace {

using namespace korvel;
using nlohmann::json;

constexpr double kSamplesOfBlock = 16384;
/// Of the time stamps of the precise detection.
constexpr double kRate = korvel::platform::kSampleRate;

/// Makes the instrument of a definition file the one in use.
void useInstrument(const std::filesystem::path& definition) {
  QBTabMgr& db = QBTabMgr::db();
  db.deselectAllInstruments();
  QBMusicXMLParser(QBTabMgr::db(), definition).parse();
  if (!db.selectedInstrument())
    throw platform::FileError(definition, platform::UserText::verbatim("defines no instrument"));
  db.computeOffsets();
}

/// Seconds of sound in a block, which holds the samples of all channels of a file in turn.
double secondsOfBlock(const std::filesystem::path& file) {
  const platform::MediaAsset asset(file);
  for (const platform::MediaTrack& track : asset.tracks())
    if (track.media == platform::MediaTrack::Media::sound)
      return kSamplesOfBlock / track.sampleRate / track.channels;
  return 0;
}

json tonesOf(const QBHold& hold) {
  json tones = json::array();
  for (const QBTone* tone : hold.tones())
    tones.push_back({{"string", tone->string()}, {"fret", tone->fret()}, {"amp", tone->amp()}});
  return tones;
}

json chordOf(const QBChord& chord, double start, double duration) {
  return {{"start", start}, {"duration", duration}, {"tones", tonesOf(*chord.hold())}};
}

json hearBlocks(const std::filesystem::path& file, QBSong* song, QBAlbum* album) {
  QBTabMgr& db = QBTabMgr::db();
  const auto track = std::make_shared<QBMediaTrack>(file);
  QBChordRecorder recorder(std::make_shared<QBChordAnalyserGame>(track, db.selectedTuning()),
                           db.selectedInstrument(), song, album);
  const double step = secondsOfBlock(file);
  json chords = json::array();
  recorder.startWithoutTimer("Test", 0.0F);
  while (!track->eof()) {
    const auto block = static_cast<double>(track->nmbOfProcessedBlocks());
    if (const QBChord* chord = recorder.nextChord())
      chords.push_back(chordOf(*chord, block * step, step));
  }
  recorder.stopWithoutTimer();
  return chords;
}

json hearPrecisely(const std::filesystem::path& file, QBSong* song, QBAlbum* album) {
  const auto analyser = std::make_shared<PreciseAnalyser>(
      std::make_shared<MonoTrack>(file), QBTabMgr::db().selectedTuning(), HearingSettings{});
  PreciseRecorder recorder(analyser, song, album);
  json chords = json::array();
  recorder.startWithoutTimer("Test", 0.0F);
  while (!analyser->atEnd())
    if (const QBChord* chord = recorder.nextChord())
      chords.push_back(chordOf(*chord, static_cast<double>(chord->timestamp()) / kRate,
                               kSamplesOfBlock / kRate));
  recorder.stopWithoutTimer();
  return chords;
}

/// The chords of a file as {"start", "duration", "tones"}, in seconds.
json transcribe(const std::filesystem::path& file, bool precisely) {
  QBTabMgr& db = QBTabMgr::db();
  QBAlbum* album = db.createAlbum(file.stem().string(), false);
  QBSong* song =
      db.createSong(file.stem().string(), db.selectedTuning(), db.selectedInstrument(), album);
  json chords = (precisely ? hearPrecisely : hearBlocks)(file, song, album);
  db.deleteAlbum(album);
  return {{"chords", std::move(chords)}};
}

}  // namespace

int main(int argc, char** argv) {
  std::filesystem::path folder = ".";
  std::filesystem::path instrument;
  std::vector<std::filesystem::path> files;
  bool precisely = false;
  CLI::App app("Writes what the import hears in recordings, one JSON file each.",
               "korvel-transcribe");
  app.add_option("--output", folder, "Folder for the results");
  app.add_option("--instrument", instrument, "Definition file (default: the program's own)");
  app.add_flag("--precise", precisely, "By the precise detection instead of the classic one");
  app.add_option("FILE", files, "Recordings")->required();
  CLI11_PARSE(app, argc, argv);
  try {
    const test::ScratchStore store;
    initializeData(QBTabMgr::db());
    if (!instrument.empty()) useInstrument(instrument);
    for (const auto& file : files)
      platform::writeAtomically(folder / file.stem().concat(".json"),
                                transcribe(file, precisely).dump());
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "korvel-transcribe: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
