// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/RecordingOfSong.h"

#include <optional>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/Unlogged.h"
#include "cli/support/choices/SongChoice.h"
#include "model/recorded/ConcertA.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "platform/files/Files.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/recordings/PlacedRecording.h"
#include "workflow/recordings/RecordingSound.h"

namespace korvel::cli {
namespace {

struct RecordingOfSongOptions {
  std::string song;
  std::optional<std::string> file;
  bool keep = false;
  bool pitch = false;
};

void printPitch(const QBSong& song) {
  if (!song.recording()) throw CliError(fullTitle(song) + ": it was heard in no recording");
  Console::attached().printLine(concertAText(recordedCentsOf(song)));
}

void printRecording(const RecordingOfSongOptions& options) {
  QBSong& song = chooseSong(options.song);
  if (options.pitch) return printPitch(song);
  const Unlogged quiet;
  if (options.file) {
    if (!platform::isThere(*options.file))
      throw CliError(*options.file + ": there is no such file");
    if (const std::size_t others = placeRecording(song, *options.file); others > 0)
      Console::attached().note("other recordings that are there, too: " + std::to_string(others));
  }
  const RecordingSound found = openRecording(song);
  if (!found.sound) throw CliError(found.problem.english());
  const std::filesystem::path file = *fileOfRecording(*song.recording());
  if (options.keep) keepingSound(*song.recording(), file).finish();
  Console::attached().print(file.string() + '\n');
}

}  // namespace

void addRecordingOfSong(Command& tool) {
  Command& command = tool.command("recording", "Print where the recording of a song is");
  auto& options = command.own<RecordingOfSongOptions>();
  needStoredSong(command, options.song);
  command.option("--file", options.file, "Where it is now").shownAs("FILE");
  command.flag("--keep", options.keep, "Keep a copy of it beside the store, as FLAC");
  command.flag("--pitch", options.pitch, "Print how its A is tuned instead, such as A = 415 Hz");
  command.does([&options] { printRecording(options); });
}

}  // namespace korvel::cli
