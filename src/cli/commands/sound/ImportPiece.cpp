// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/ImportPiece.h"

#include <memory>

#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "exchange/Formats.h"
#include "model/songs/QBSong.h"
#include "platform/loop/PlainRunLoop.h"
#include "workflow/exchange/PieceTracks.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {

void addPieceFlags(Command& command, PieceChoices& choices) {
  command
      .option("--track", choices.track,
              "Of a file of another program: number or name of the track, or \"list\" for which "
              "there are (default: the first guitar)")
      .shownAs("N|NAME|list");
  const Option written = command.flag(
      "--as-written", [&choices] { choices.manner = PieceManner::asWritten; },
      "Of a MIDI file: notes stand where the file has them in its bars");
  command
      .flag(
          "--as-played", [&choices] { choices.manner = PieceManner::asPlayed; },
          "Of a MIDI file: the rhythm is read from the times of the notes")
      .excludes(written);
  command.flag("--six-strings", choices.fitsStrings,
               "Play a track for another number of strings on six");
}

bool listsTracks(const PieceChoices& choices) { return choices.track == "list"; }

void printTracks(const std::string& file) {
  const exchange::Piece piece = exchange::readPiece(file);
  for (const platform::UserText& line : linesOfTracks(piece))
    Console::attached().printLine(line.english());
}

platform::Ref<QBSong> importPiece(const std::string& file, const PieceChoices& choices,
                                  bool stepped) {
  const auto command = std::make_shared<PieceImport>(file, exchange::readPiece(file), choices);
  command->onProgress([](double share) { Console::attached().progress(share); });
  QBSession::session().addJob(command);
  if (stepped) {
    command->runInBackground();
    platform::PlainRunLoop::ofProcess().runUntil([&] { return !command->isRunning(); });
  } else {
    command->run();
  }
  return command->song();
}

}  // namespace korvel::cli
