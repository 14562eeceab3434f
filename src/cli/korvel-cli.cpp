// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>
#include <cstdlib>
#include <exception>
#include <string>

#include "cli/commands/arranging/EasySong.h"
#include "cli/commands/arranging/StrumSong.h"
#include "cli/commands/doubts/CorrectSong.h"
#include "cli/commands/doubts/DoubtsOfSong.h"
#include "cli/commands/editing/FingerSong.h"
#include "cli/commands/editing/NameChords.h"
#include "cli/commands/editing/RetuneSong.h"
#include "cli/commands/instruments/ListInstruments.h"
#include "cli/commands/rhythm/ChordsOfFile.h"
#include "cli/commands/rhythm/RhythmOfSong.h"
#include "cli/commands/sheet/CapoOfSong.h"
#include "cli/commands/sheet/GripOfSong.h"
#include "cli/commands/sheet/LyricsOfSong.h"
#include "cli/commands/sheet/ReadSheet.h"
#include "cli/commands/sheet/SheetOfSong.h"
#include "cli/commands/songs/Apply.h"
#include "cli/commands/songs/CloneSong.h"
#include "cli/commands/songs/DeleteSong.h"
#include "cli/commands/songs/DumpSong.h"
#include "cli/commands/songs/Export.h"
#include "cli/commands/songs/ExtractPart.h"
#include "cli/commands/songs/ListSongs.h"
#include "cli/commands/songs/LoopSong.h"
#include "cli/commands/songs/MergeSongs.h"
#include "cli/commands/songs/MoveSong.h"
#include "cli/commands/songs/RenameSong.h"
#include "cli/commands/songs/ShowSong.h"
#include "cli/commands/sound/Devices.h"
#include "cli/commands/sound/Import.h"
#include "cli/commands/sound/Play.h"
#include "cli/commands/sound/Record.h"
#include "cli/commands/sound/RecordingOfSong.h"
#include "cli/commands/sound/Render.h"
#include "cli/commands/sound/Transcribe.h"
#include "cli/commands/store/BackupStore.h"
#include "cli/commands/store/CheckStore.h"
#include "cli/commands/store/RestoreStore.h"
#include "cli/commands/takes/ListTakes.h"
#include "cli/commands/tunings/ListTunings.h"
#include "cli/support/CliError.h"
#include "cli/support/CommandLine.h"
#include "cli/support/Console.h"
#include "model/store/QBTabMgr.h"
#include "model/store/StoreUnavailable.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "workflow/session/ProgramEnd.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/StoreSeeding.h"

namespace {

using namespace korvel;

/// In the order of the help.
void describe(cli::Command& tool) {
  cli::addImport(tool);
  cli::addRecord(tool);
  cli::addTakes(tool);
  cli::addTranscribe(tool);
  cli::addChordsOfFile(tool);
  cli::addShowSong(tool);
  cli::addSheetOfSong(tool);
  cli::addCapoOfSong(tool);
  cli::addReadSheet(tool);
  cli::addDumpSong(tool);
  cli::addDeleteSong(tool);
  cli::addExport(tool);
  cli::addPlay(tool);
  cli::addRender(tool);
  cli::addRecordingOfSong(tool);
  cli::addApply(tool);
  cli::addEasySong(tool);
  cli::addStrumSong(tool);
  cli::addRhythmOfSong(tool);
  cli::addDoubtsOfSong(tool);
  cli::addCorrectSong(tool);
  cli::addNameChords(tool);
  cli::addFingerSong(tool);
  cli::addGripOfSong(tool);
  cli::addLyricsOfSong(tool);
  cli::addRetuneSong(tool);
  cli::addLoopSong(tool);
  cli::addCloneSong(tool);
  cli::addRenameSong(tool);
  cli::addMoveSong(tool);
  cli::addMergeSongs(tool);
  cli::addExtractPart(tool);
  cli::addDevices(tool);
  cli::addListSongs(tool);
  cli::addTunings(tool);
  cli::addInstruments(tool);
  cli::addCheckStore(tool);
  cli::addBackupStore(tool);
  cli::addRestoreStore(tool);
}

constexpr int kStoreFailureStatus = -1;

void openStore(cli::Store need) {
  const std::string path = QBTabMgr::storePath();
  if (need == cli::Store::existing && !platform::isThere(path))
    throw cli::CliError(path + ": there is no such store");
  try {
    prepareStore();
  } catch (const StoreUnavailable& error) {
    QBSession::session().exitWithStatus(error.context(), error.text(), kStoreFailureStatus);
  }
}

/// Answers the exit status.
int run(const cli::Command& command, const std::string& store) {
  cli::Console& console = cli::Console::attached();
  int status = EXIT_FAILURE;
  try {
    if (!store.empty()) QBTabMgr::setStorePath(store);
    if (command.store() != cli::Store::none) openStore(command.store());
    status = command.run();
  } catch (const ProgramEnd& end) {
    status = end.status;
  } catch (const std::exception& error) {
    console.error(platform::textOf(error).english());
  }
  QBTabMgr::clearDb();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // A file that reaches its size limit is to be an error like a full disk, not the end.
  std::signal(SIGXFSZ, SIG_IGN);
  cli::CommandLine line("Korvel: guitar recordings to chords and tablature.", "korvel-cli");
  std::string store;
  line.root()
      .option("--store", store, "Store file (default: Korvel.sqlite in your data folder)")
      .shownAs("FILE");
  line.setFooter(
      "SONG is a title, or ALBUM/TITLE where titles repeat.\n"
      "Exit status: 0 done, 1 failed, 2 wrong usage, 255 the store cannot be opened.");
  describe(line.root());
  if (const auto ended = line.read(argc, argv)) return *ended;
  return run(line.chosen(), store);
}
