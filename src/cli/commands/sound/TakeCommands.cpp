// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/TakeCommands.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "precise/Settings.h"
#include "workflow/hearing/Detection.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/QBSession.h"
#include "workflow/takes/Takes.h"

namespace korvel::cli {
namespace {

struct TakeOptions {
  int number = 0;  ///< As they are listed, from 1.
  const Detection* detection = &preciseDetection();
  precise::Settings settings{};  ///< Of the precise detection.
};

std::string nameOf(const QBSong& song) { return song.album()->name() + '/' + song.title(); }

Take chosen(int number) {
  const auto takes = takesLeft();
  if (number < 1 || number > static_cast<int>(takes.size()))
    throw CliError("there is no take " + std::to_string(number) +
                   "; \"korvel-cli takes\" lists those that there are");
  return takes[static_cast<std::size_t>(number - 1)];
}

void listTakes() {
  int number = 0;
  for (const Take& take : takesLeft()) {
    char begin[32], length[32];
    std::snprintf(begin, sizeof begin, "%3d  ", ++number);
    std::snprintf(length, sizeof length, ", %.1f s", take.seconds);
    Console::attached().printLine(begin + take.file.string() + length +
                                  (take.song ? ", heard live as " + nameOf(*take.song) : ""));
  }
}

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
  const Take take = chosen(options.number);
  const QBSong* song = take.song ? hearAgain(take, options) : hearNew(take, options);
  removeIfTake(take.file);
  Console::attached().note("Stored as " + nameOf(*song) + '.');
  Console::attached().print(song->tabulature());
}

void deleteTake(int number) {
  const Take take = chosen(number);
  removeIfTake(take.file);
  if (platform::isThere(take.file)) throw CliError(take.file.string() + ": cannot be deleted");
  Console::attached().note(take.file.string() + ": deleted");
}

}  // namespace

void addTakes(Command& tool) {
  Command& takes = tool.command("takes", "List what recordings left that did not end");
  takes.does(listTakes);
  Command& import = takes.command("import", "Make a song of a take, and remove its file");
  auto& options = import.own<TakeOptions>();
  import.option("N", options.number, "Its number in the list").required().shownAs("");
  addDetectionFlags(import, options.detection, options.settings);
  import.does([&options] { importTake(options);
});
Command& removal = takes.command("delete", "Delete a take without hearing it");
auto& number = removal.own<int>();
removal.option("N", number, "Its number in the list").required().shownAs("");
removal.does([&number] { deleteTake(number); });
}  // namespace korvel::cli

}  // namespace korvel::cli
