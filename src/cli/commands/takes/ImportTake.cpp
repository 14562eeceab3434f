// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/takes/ImportTake.h"

#include <memory>
#include <string>

#include "analysis/HearingSettings.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/choices/TakeChoice.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/hearing/Detection.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

struct TakeOptions {
  int number = 0;
  const Detection* detection = &preciseDetection();
  HearingSettings settings = settingsOfFrontEnds();
};

/// Into the song, which takes the place of that one.
QBSong* hear(const Take& take, const TakeOptions& options, QBAlbum* album, QBSong* song,
             QBSong* replaced) {
  requireSound(take.file.string());
  const auto command = std::make_shared<QBCmdImportSong>(std::make_shared<AlbumNode>(album),
                                                         take.file.string(), song);
  command->setDetection(*options.detection, options.settings);
  command->setReplaced(replaced);
  command->onProgress([](double share) { Console::attached().progress(share); });
  QBSession::session().addJob(command);
  command->run();
  return command->newSong();
}

/// A song that was heard live gets its chords anew.
QBSong* hearAgain(const Take& take, const TakeOptions& options) {
  QBTabMgr& db = QBTabMgr::db();
  QBSong* song =
      hear(take, options, take.song->album(),
           db.createSong(take.song->title(), take.song->tuning(), db.selectedInstrument(), nullptr),
           take.song);
  db.context().save();
  return song;
}

QBSong* hearNew(const Take& take, const TakeOptions& options) {
  QBTabMgr& db = QBTabMgr::db();
  NewSong made(db, {}, take.file.stem().string());
  made.song()->setTuning(db.selectedTuning());
  hear(take, options, made.album(), made.song(), nullptr);
  if (!hasTones(*made.song()))
    throw CliError(take.file.string() + ": no tones were heard in it; nothing was stored");
  db.context().save();
  made.keep();
  return made.song();
}

void importTake(const TakeOptions& options) {
  requireInstrumentFor(*options.detection);
  const Take take = chooseTake(options.number);
  const QBSong* song = take.song ? hearAgain(take, options) : hearNew(take, options);
  removeIfTake(take.file);
  Console::attached().note("Stored as " + pathOf(*song) + '.');
  Console::attached().print(song->tabulature());
}

}  // namespace

void addImportTake(Command& takes) {
  Command& command = takes.command("import", "Make a song of a take, and remove its file");
  auto& options = command.own<TakeOptions>();
  needTake(command, options.number);
  addDetectionFlags(command, options.detection, options.settings);
  command.does([&options] { importTake(options); });
}

}  // namespace korvel::cli
