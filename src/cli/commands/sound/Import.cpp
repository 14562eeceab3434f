// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Import.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/chords/Listening.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/TuningChoice.h"
#include "export/SongJson.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/text/UserError.h"
#include "workflow/hearing/Detection.h"
#include "workflow/hearing/KnownRecordings.h"
#include "workflow/hearing/ListeningAhead.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/RecordingTags.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

struct ImportOptions {
  std::vector<std::string> files;
  std::optional<std::string> album;   ///< Made when missing; one for each file when not given.
  std::optional<std::string> title;   ///< Of the song; after the file when not given.
  std::optional<std::string> tuning;  ///< For this import only; the active one when not given.
  const Detection* detection = &preciseDetection();
  HearingSettings settings = settingsOfFrontEnds();
  bool json = false;
  bool keepRecording = false;
  bool stepped = false;  ///< Through the run loop's timer, as a window does it.
};

void run(QBCmdImportSong& command, bool stepped) {
  command.onProgress([](double share) { Console::attached().progress(share); });
  if (!stepped) {
    command.run();
    return;
  }
  command.runInBackground();
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !command.isRunning(); });
}

/// Hears the file into the song, in its tuning.
void hear(const ImportOptions& options, const std::string& file, const NewSong& made,
          std::shared_ptr<Listening> listening) {
  const auto command = std::make_shared<QBCmdImportSong>(std::make_shared<AlbumNode>(made.album()),
                                                         file, made.song());
  command->setDetection(*options.detection, options.settings);
  command->setListening(std::move(listening));
  command->setKeepsSound(options.keepRecording);
  QBSession::session().addJob(command);
  run(*command, options.stepped);
}

platform::Ref<QBSong> importFile(const ImportOptions& options, const std::string& file,
                                 QBTuning* tuning, std::shared_ptr<Listening> listening) {
  requireSound(file);
  if (const QBSong* known = songHeardIn(QBTabMgr::db(), file))
    Console::attached().note("the recording is already stored as " + fullTitle(*known));
  const RecordingTags tags(file);
  NewSong made(QBTabMgr::db(), options.album ? options.album : tags.artist,
               tags.title.value_or(std::filesystem::path(file).stem().string()), options.title);
  made.song()->setTuning(tuning);
  hear(options, file, made, std::move(listening));
  if (!hasTones(*made.song()))
    throw CliError(file + ": no tones were heard in it; nothing was stored");
  QBTabMgr::db().context().save();
  made.keep();
  return made.song();
}

/// Only what is heard as a whole can be heard before it is its turn. A single file needs nothing.
std::optional<ListeningAhead> aheadOf(const ImportOptions& options, QBTuning* tuning) {
  if (!options.detection->canBeAhead || options.files.size() < 2) return {};
  const OpenPitches open = tuning ? tuning->openStrings().pitches() : kStandardPitches;
  return std::make_optional<ListeningAhead>(options.files, open, options.settings);
}

/// The line for a file that could not be imported names it, whatever went wrong.
std::string problemOf(const std::string& file, const std::exception& error) {
  const std::string what = platform::textOf(error).english();
  return what.starts_with(file) ? what : file + " was not imported: " + what;
}

void printSongs(const ImportOptions& options, const std::vector<QBSong*>& songs) {
  if (options.files.size() > 1)
    Console::attached().print(songsAsJson(songs));
  else if (!songs.empty())
    Console::attached().print(songAsJson(*songs.front()));
}

/// A file that cannot be imported is reported and leaves nothing behind; the others go on. Answers
/// the exit status.
int importFiles(const ImportOptions& options) {
  requireInstrumentFor(*options.detection);
  QBTuning* tuning =
      options.tuning ? &chooseTuning(*options.tuning) : QBTabMgr::db().selectedTuning();
  std::optional<ListeningAhead> ahead = aheadOf(options, tuning);
  std::vector<platform::Ref<QBSong>> songs;
  int status = EXIT_SUCCESS;
  for (const std::string& file : options.files) {
    try {
      songs.push_back(importFile(options, file, tuning, ahead ? ahead->next() : nullptr));
    } catch (const std::exception& error) {
      Console::attached().error(problemOf(file, error));
      status = EXIT_FAILURE;
      continue;
    }
    if (!options.json) Console::attached().printText(songs.back()->tabulature());
  }
  if (options.json) printSongs(options, {songs.begin(), songs.end()});
  return status;
}

/// A band's chords are laid into bars, and the classic detection knows neither.
void requireWholeFor(const Command& command, const ImportOptions& options) {
  if (!command.isGiven("--what")) return;
  if (!options.detection->usesSettings)
    throw UsageError("--what",
                     "has no meaning with --detection " + std::string(options.detection->name));
  if (options.settings.players == Players::band && options.settings.grid == Grid::slices)
    throw UsageError("--what band", "is written in bars; leave --grid slices out");
}

}  // namespace

void addImport(Command& tool) {
  Command& command =
      tool.command("import", "Import recordings, store them and print their tablature");
  auto& options = command.own<ImportOptions>();
  command.option("FILE", options.files, "Sound files").required().shownAs("");
  command.option("--album", options.album, "Album for the songs (default: one for each file)");
  command.option("--title", options.title, "Title of the song (default: after the file)");
  command.option("--tuning", options.tuning, "Tuning of the guitar, such as \"Drop D\"");
  addDetectionFlags(command, options.detection, options.settings);
  addPlayersFlag(command, options.settings);
  command.flag("--json", options.json, "Print the song as JSON");
  command.flag("--keep-recording", options.keepRecording,
               "Keep a copy of the recording beside the store, as FLAC");
  command.flag("--stepped", options.stepped, "Import step by step on a timer");
  command.checkLast([&] {
    requireWholeFor(command, options);
    if (options.title && options.files.size() > 1)
      throw UsageError("--title", "goes with a single file");
    if (options.title == "" || options.album == "")
      throw UsageError("--title and --album", "take a name");
  });
  command.does([&options] { return importFiles(options); });
}

}  // namespace korvel::cli
