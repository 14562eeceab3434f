// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Import.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/chords/Listening.h"
#include "cli/commands/sound/ImportPiece.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/TuningChoice.h"
#include "exchange/Formats.h"
#include "export/SongJson.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/ConcertA.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/files/Files.h"
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
#include "workflow/library/TuningEdits.h"
#include "workflow/session/QBSession.h"
#include "workflow/sheets/ChordSong.h"

namespace korvel::cli {
namespace {

struct ImportOptions {
  std::vector<std::string> files;
  std::optional<std::string> album;  ///< Made when missing; one for each file when not given.
  std::optional<std::string> title;  ///< Of the song; after the file when not given.
  /// For this import only, or kFoundTuning; the active one when not given.
  std::optional<std::string> tuning;
  const Detection* detection = &preciseDetection();
  HearingSettings settings = settingsOfFrontEnds();
  bool json = false;
  bool keepRecording = false;
  bool stepped = false;  ///< Through the run loop's timer, as a window does it.
  PieceChoices piece;    ///< For files of other programs.
};

using Songs = std::vector<platform::Ref<QBSong>>;

bool isPiece(const std::string& file) { return exchange::formatOfFile(file).has_value(); }

/// Nothing of it is to be heard.
bool isWritten(const std::string& file) { return isChordProFile(file) || isPiece(file); }

void run(QBCmdImportSong& command, bool stepped) {
  command.onProgress([](double share) { Console::attached().progress(share); });
  if (!stepped) {
    command.run();
    return;
  }
  command.runInBackground();
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !command.isRunning(); });
}

/// What has a recording heard in what was found. In a tuning that the user names it is the A only.
std::string flagFor(const FoundTuning& found, const ImportOptions& options) {
  if (!isNamedTuning(options.tuning)) return "--tuning " + std::string(kFoundTuning);
  return "--a4 " + std::to_string(std::lround(hertzOfA(found.farA.value_or(0))));
}

/// Hears the file into the song, in its tuning. Answers those of its voices.
Songs hear(const ImportOptions& options, const std::string& file, const NewSong& made,
           std::shared_ptr<Listening> listening) {
  const auto command = std::make_shared<QBCmdImportSong>(std::make_shared<AlbumNode>(made.album()),
                                                         file, made.song());
  command->setDetection(*options.detection, options.settings);
  command->setListening(std::move(listening));
  command->setKeepsSound(options.keepRecording);
  QBSession::session().addJob(command);
  run(*command, options.stepped);
  if (command->otherTuning() && !options.settings.takesTuning)
    Console::attached().note("import it with " + flagFor(*command->otherTuning(), options) +
                             " to have it heard in " + nameOfTuning(*command->otherTuning()));
  return command->voiceSongs();
}

Songs importFile(const ImportOptions& options, const std::string& file, QBTuning* tuning,
                 std::shared_ptr<Listening> listening) {
  requireSound(file);
  if (const QBSong* known = songHeardIn(QBTabMgr::db(), file))
    Console::attached().note("the recording is already stored as " + fullTitle(*known));
  const RecordingTags tags(file);
  NewSong made(QBTabMgr::db(), options.album ? options.album : tags.artist,
               tags.title.value_or(std::filesystem::path(file).stem().string()), options.title);
  made.song()->setTuning(tuning);
  Songs voices = hear(options, file, made, std::move(listening));
  if (!hasTones(*made.song()))
    throw CliError(file + ": no tones were heard in it; nothing was stored");
  QBTabMgr::db().context().save();
  made.keep();
  voices.insert(voices.begin(), platform::Ref<QBSong>(made.song()));
  return voices;
}

/// A file of another program has strings of its own, unless the user wants others.
platform::Ref<QBSong> songOfPiece(const ImportOptions& options, const std::string& file,
                                  QBTuning* tuning) {
  PieceChoices choices = options.piece;
  if (isNamedTuning(options.tuning)) choices.tuning = tuning;
  choices.fingering = options.settings.fingering;
  choices.capo = options.settings.fingering.capo;
  choices.rhythm = options.settings.rhythm;
  choices.album = options.album;
  choices.title = options.title;
  return importPiece(file, choices, options.stepped);
}

platform::Ref<QBSong> songOfSheet(const ImportOptions& options, const std::string& file) {
  return platform::Ref<QBSong>(&songOfChordPro(QBTabMgr::db(), platform::readWholeFile(file), file,
                                               {options.album, options.title}));
}

/// Only what is heard as a whole can be heard before it is its turn. A single file needs nothing.
std::optional<ListeningAhead> aheadOf(const ImportOptions& options,
                                      const std::vector<std::string>& recordings,
                                      QBTuning* tuning) {
  if (!options.detection->canBeAhead || recordings.size() < 2) return {};
  const OpenPitches open = tuning ? tuning->openStrings().pitches() : kStandardPitches;
  return std::make_optional<ListeningAhead>(recordings, open, options.settings);
}

std::vector<std::string> recordingsOf(const ImportOptions& options) {
  std::vector<std::string> recordings;
  std::ranges::remove_copy_if(options.files, std::back_inserter(recordings), isWritten);
  return recordings;
}

void printSongs(const ImportOptions& options, const std::vector<QBSong*>& songs) {
  if (options.files.size() > 1 || songs.size() > 1)
    Console::attached().print(songsAsJson(songs));
  else if (!songs.empty())
    Console::attached().print(songAsJson(*songs.front()));
}

/// A file that cannot be imported is reported and leaves nothing behind; the others go on. Answers
/// the exit status.
int importFiles(ImportOptions& options) {
  const std::vector<std::string> recordings = recordingsOf(options);
  if (!recordings.empty()) requireInstrumentFor(*options.detection);
  QBTuning* tuning = isNamedTuning(options.tuning) ? &tuningToPlayIn(*options.tuning)
                                                   : QBTabMgr::db().selectedTuning();
  if (isNamedTuning(options.tuning)) options.settings.tunings = {tuning->openStrings().pitches()};
  std::optional<ListeningAhead> ahead = aheadOf(options, recordings, tuning);
  Songs songs;
  int status = EXIT_SUCCESS;
  for (const std::string& file : options.files) {
    try {
      const Songs made = isChordProFile(file) ? Songs{songOfSheet(options, file)}
                         : isPiece(file)
                             ? Songs{songOfPiece(options, file, tuning)}
                             : importFile(options, file, tuning, ahead ? ahead->next() : nullptr);
      songs.insert(songs.end(), made.begin(), made.end());
      if (!options.json)
        for (const auto& song : made) Console::attached().printText(song->tabulature());
    } catch (const std::exception& error) {
      Console::attached().errorOf(file, " was not imported", error);
      status = EXIT_FAILURE;
    }
  }
  if (options.json) printSongs(options, {songs.begin(), songs.end()});
  return status;
}

/// Of recordings there is nothing to say.
int listTracks(const ImportOptions& options) {
  int status = EXIT_SUCCESS;
  for (const std::string& file : options.files) {
    try {
      if (options.files.size() > 1) Console::attached().printLine(file + ':');
      printTracks(file);
    } catch (const std::exception& error) {
      Console::attached().errorOf(file, " was not imported", error);
      status = EXIT_FAILURE;
    }
  }
  return status;
}

/// A band's chords are laid into bars, and the classic detection knows neither.
void requireWholeFor(const Command& command, const ImportOptions& options) {
  if (command.isGiven("--strum") && options.settings.players == Players::guitar)
    throw UsageError("--strum", "goes with --what band or auto");
  if (command.isGiven("--voices") && options.settings.players == Players::guitar)
    throw UsageError("--voices", "goes with --what band or auto");
  if (!command.isGiven("--what")) return;
  if (!options.detection->usesSettings)
    throw UsageError("--what",
                     "has no meaning with --detection " + std::string(options.detection->name));
  if (options.settings.players == Players::band && options.settings.grid == Grid::slices)
    throw UsageError("--what band", "is written in bars; leave --grid slices out");
}

/// The chords of a band are not read by the pitch that somebody says.
void requireGuitarFor(const Command& command, const ImportOptions& options) {
  if (!command.isGiven("--a4")) return;
  if (!options.detection->usesSettings)
    throw UsageError("--a4",
                     "has no meaning with --detection " + std::string(options.detection->name));
  if (options.settings.players != Players::guitar)
    throw UsageError("--a4", "goes with --what guitar");
}

/// It is told of in any case.
void findTuning(ImportOptions& options) {
  options.settings.takesTuning = options.tuning.has_value();
  if (options.settings.takesTuning && !options.detection->usesSettings)
    throw UsageError("--tuning " + std::string(kFoundTuning),
                     "has no meaning with --detection " + std::string(options.detection->name));
  options.settings.tunings = pitchesOfKnownTunings();
}

}  // namespace

void addImport(Command& tool) {
  Command& command =
      tool.command("import",
                   "Import recordings and files of other programs, store them and print "
                   "their tablature");
  auto& options = command.own<ImportOptions>();
  command
      .option("FILE", options.files,
              "Sound files, tablature as text, MIDI, MusicXML, Guitar Pro, ChordPro")
      .required()
      .shownAs("");
  command.option("--album", options.album, "Album for the songs (default: one for each file)");
  command.option("--title", options.title, "Title of the song (default: after the file)");
  command.option("--tuning", options.tuning,
                 "Tuning of the guitar, such as \"Drop D\", or the one that a recording is clearly "
                 "played in (auto)");
  addDetectionFlags(command, options.detection, options.settings);
  addConcertPitchFlag(command, options.settings);
  addPlayersFlag(command, options.settings);
  addPieceFlags(command, options.piece);
  addStrumFlag(command, options.settings);
  addVoicesFlag(command, options.settings);
  command.flag("--json", options.json, "Print the song as JSON");
  command.flag("--keep-recording", options.keepRecording,
               "Keep a copy of the recording beside the store, as FLAC");
  command.flag("--stepped", options.stepped, "Import step by step on a timer");
  command.checkLast([&] {
    requireWholeFor(command, options);
    requireGuitarFor(command, options);
    if (!isNamedTuning(options.tuning)) findTuning(options);
    if (options.title && options.files.size() > 1)
      throw UsageError("--title", "goes with a single file");
    if (options.title == "" || options.album == "")
      throw UsageError("--title and --album", "take a name");
  });
  command.does([&options] {
    return listsTracks(options.piece) ? listTracks(options) : importFiles(options);
  });
}

}  // namespace korvel::cli
