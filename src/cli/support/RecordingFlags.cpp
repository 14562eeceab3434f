// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/RecordingFlags.h"

#include <cstdio>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "playback/RecordingRenderer.h"
#include "workflow/recordings/RecordingSound.h"

namespace korvel::cli {
namespace {

constexpr double kCentsOfHalfTone = 100;
constexpr double kPerCent = 100;

/// Such as "60:5:2": begins at 60 %, 5 % more after each 2 rounds.
platform::SpeedRamp rampOf(const std::string& written) {
  double from = 0, step = 0;
  int rounds = 0, read = 0;
  const int fields = std::sscanf(written.c_str(), "%lf:%lf:%d%n", &from, &step, &rounds, &read);
  const bool isWhole = fields == 3 && static_cast<std::size_t>(read) == written.size();
  if (!isWhole || from < 10 || from > 100 || step < 0 || step > 100 || rounds < 1 || rounds > 99)
    throw UsageError("--ramp",
                     "takes FROM:STEP:ROUNDS, such as 60:5:2, with 10 to 100 % to begin with");
  return {from / kPerCent, step / kPerCent, rounds};
}

}  // namespace

PlayedSound RecordingOptions::played() const {
  PlayedSound sound;
  sound.mix = recording ? mix.value_or(0) : 1;
  sound.apart = apart;
  sound.cents = halfTones * kCentsOfHalfTone;
  sound.rounds.ramp = ramp;
  if (between)
    sound.rounds.between = *between == "clicks" ? BetweenRounds::clicks : BetweenRounds::silence;
  return sound;
}

void addRecordingFlags(Command& command, RecordingOptions& options) {
  const Option recording = command.flag("--recording", options.recording,
                                        "The recording that the song was heard in is heard");
  command
      .option("--mix", options.mix,
              "From the recording alone to the guitar alone (default: 0, the recording)")
      .within(0, 1)
      .needs(recording);
  command.flag("--apart", options.apart, "The recording on the left and the guitar on the right")
      .needs(recording);
  command
      .option("--transpose", options.halfTones,
              "Half tones that the recording is transposed by, such as -1 or 0.25")
      .within(-24, 24)
      .needs(recording);
}

void addRoundFlags(Command& command, RecordingOptions& options) {
  command
      .option(
          "--ramp", [&options](const std::string& written) { options.ramp = rampOf(written); },
          "A loop gets faster: per cent at first, per cent more, after so many rounds each")
      .shownAs("FROM:STEP:ROUNDS");
  command.option("--between", options.between, "What comes between the rounds of a loop")
      .oneOf({"silence", "clicks"});
}

std::shared_ptr<const platform::DecodedSound> requireRecording(QBSong& song) {
  const RecordingSound found = openRecording(song);
  if (!found.sound) throw CliError(found.problem.english());
  if (!RecordingRenderer::isInStep(song))
    throw CliError(fullTitle(song) + ": its chords do not follow the recording");
  return found.sound;
}

}  // namespace korvel::cli
