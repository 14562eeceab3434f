// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/arranging/EasySong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/guided/EasyVersion.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

constexpr int kFewestFrets = 3;
constexpr int kMostFrets = 12;

struct EasyOptions {
  std::string song;
  bool chords = false;
  bool bass = false;
  bool melody = false;
  bool transpose = false;
  bool capo = false;
  int frets = kFewestFrets;

  EasyChoices choices() const {
    const EasyTones tones = melody ? EasyTones::melody
                            : bass ? EasyTones::bassAndMelody
                                   : EasyTones::chords;
    const EasyKey key = capo        ? EasyKey::capo
                        : transpose ? EasyKey::transposed
                                    : EasyKey::asRecorded;
    return {tones, key, frets};
  }
};

void makeEasy(const EasyOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  const EasyChoices choices = options.choices();
  const int capo = capoOf(choices, song);
  printTitle(easyVersion(choices).accept(song));
  if (capo > 0)
    QBSession::session().addToLog(platform::UserText(
        platform::phrase("Log", "With a capo on fret %1 it sounds as recorded."), capo));
}

}  // namespace

void addEasySong(Command& tool) {
  Command& command = tool.command("easy", "Make an easy version of a song");
  auto& options = command.own<EasyOptions>();
  needStoredSong(command, options.song);
  Option chords =
      command.flag("--chords", options.chords, "Simple chords in easy grips (the default)");
  Option bass = command.flag("--bass", options.bass, "Bass and melody");
  Option melody = command.flag("--melody", options.melody, "The melody only");
  chords.excludes(bass).excludes(melody);
  bass.excludes(melody);
  Option transpose =
      command.flag("--transpose", options.transpose, "Higher or lower, for open chords");
  command.flag("--capo", options.capo, "Lower, for open chords with a capo").excludes(transpose);
  command.option("--frets", options.frets, "Highest fret (default: 3)")
      .wholeWithin(kFewestFrets, kMostFrets);
  command.does([&options] { makeEasy(options); });
}

}  // namespace korvel::cli
