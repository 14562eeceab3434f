// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/rhythm/RhythmOfSong.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <string>

#include "analysis/HearingSettings.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/RhythmFlags.h"
#include "cli/support/Unlogged.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "music/Pitch.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/editing/rhythm/SongRhythm.h"

namespace korvel::cli {
namespace {

struct RhythmOptions {
  std::string song;
  HearingSettings told;          ///< What the flags of an import say too.
  bool finest = false;           ///< Whether they say how short notes are.
  std::optional<double> factor;  ///< Of the tempo.
  std::optional<double> barLine;
  std::optional<double> beats;  ///< That bar lines come later.
  bool byHalf = false;
  bool asHeard = false;
  bool bars = false;
  bool slices = false;

  bool areWishes() const {
    const rhythm::Wishes& wishes = told.rhythm;
    return asHeard || wishes.tempo || factor || wishes.metre || wishes.feel || finest || barLine ||
           beats;
  }
};

/// All that was said makes one reading.
void tell(WishedRhythm& wished, const RhythmOptions& options) {
  const rhythm::Wishes& told = options.told.rhythm;
  if (options.asHeard) wished.forget();
  if (options.beats) wished.moveBarLines(*options.beats * (options.byHalf ? 0.5 : 1));
  if (options.factor) wished.multiplyTempo(*options.factor);
  if (told.tempo) wished.setTempo(*told.tempo);
  if (told.metre) wished.setMetre(*told.metre);
  if (told.feel) wished.setFeel(*told.feel);
  if (options.finest) wished.setFinest(told.finest);
  if (options.barLine) wished.setBarLine(*options.barLine);
}

void change(QBSong& song, const RhythmOptions& options) {
  const Unlogged quiet;
  SongRhythm songRhythm(song);
  if (options.slices)
    songRhythm.layIntoSlices();
  else if (options.areWishes())
    songRhythm.change(platform::phrase("UndoAction", "Change Rhythm"),
                      [&](WishedRhythm& wished) { tell(wished, options); });
  else if (options.bars)
    songRhythm.layIntoBars();
}

std::optional<rhythm::Key> keyOf(const QBSong& song, const rhythm::Reading& reading) {
  if (!song.hasKey()) return reading.key;
  return rhythm::Key{pitchClass(song.key()), song.key() >= kNotesPerOctave};
}

std::string linesOf(QBSong& song) {
  const RecordedRhythm recorded(song);
  std::string lines;
  if (!song.isOnBeats())
    lines += recorded.isFree() ? "slices of 0.37 s; in bars, which it is too free to be sure of:\n"
                               : "slices of 0.37 s; in bars:\n";
  const rhythm::Reading& reading = recorded.reading();
  lines += (song.isOnBeats() ? rhythmText(song, reading) : rhythmText(reading)).english() + '\n';
  if (const auto missed = missedTempoText(reading, recorded.wishes()); missed && song.isOnBeats())
    lines += missed->english() + '\n';
  if (const auto key = keyOf(song, reading)) lines += "key " + keyText(*key).english() + '\n';
  for (const rhythm::Alternative& other : recorded.others())
    lines += "or " + offerText(other).english() + '\n';
  return lines;
}

void doRhythm(const RhythmOptions& options) {
  QBSong& song = chooseSong(options.song);
  change(song, options);
  Console::attached().printText(linesOf(song));
}

void requireOneOf(const Command& command, std::initializer_list<const char*> names) {
  std::string given;
  for (const char* name : names) {
    if (!command.isGiven(name)) continue;
    if (!given.empty()) throw UsageError(name, "excludes " + given);
    given = name;
  }
}

void checkRhythm(const Command& command, const RhythmOptions& options) {
  requireOneOf(command, {"--tempo", "--double", "--half", "--three-halves", "--two-thirds"});
  requireOneOf(command, {"--swing", "--straight", "--triplets"});
  requireOneOf(command, {"--earlier", "--later", "--bar-line"});
  requireOneOf(command, {"--slices", "--bars"});
  if (options.slices && options.areWishes())
    throw UsageError("--slices", "goes without what is said of bars");
  if (options.byHalf && !options.beats)
    throw UsageError("--half-beat", "goes with --earlier or --later");
}

void addTempoFlags(Command& command, RhythmOptions& options) {
  struct Ratio {
    const char* flag;
    double factor;
    const char* help;
  };
  static constexpr std::array kRatios{Ratio{"--double", 2, "Twice as many beats"},
                                      Ratio{"--half", 0.5, "Half as many beats"},
                                      Ratio{"--three-halves", 1.5, "Three beats for two"},
                                      Ratio{"--two-thirds", 2 / 3.0, "Two beats for three"}};
  for (const Ratio& ratio : kRatios)
    command.flag(
        ratio.flag, [&options, &ratio] { options.factor = ratio.factor; }, ratio.help);
}

void addBarFlags(Command& command, RhythmOptions& options) {
  command.option("--bar-line", options.barLine,
                 "There is a bar line at the beat next to this time, in seconds");
  command.flag(
      "--earlier", [&options] { options.beats = -1; }, "Bar lines a beat earlier");
  command.flag(
      "--later", [&options] { options.beats = 1; }, "Bar lines a beat later");
  command.flag("--half-beat", options.byHalf, "With these two: by half a beat, beats as well");
}

}  // namespace

void addRhythmOfSong(Command& tool) {
  Command& command =
      tool.command("rhythm", "Print how the rhythm of a song was read, or read it otherwise");
  auto& options = command.own<RhythmOptions>();
  needStoredSong(command, options.song);
  addRhythmFlags(command, options.told);
  command.flag(
      "--triplets", [&options] { options.told.rhythm.feel = rhythm::Feel::triplets; },
      "Beats are divided by three");
  addTempoFlags(command, options);
  addBarFlags(command, options);
  command.flag("--as-heard", options.asHeard, "Forget what was said before");
  command.flag("--bars", options.bars, "Lay a song of slices into bars");
  command.flag("--slices", options.slices, "Lay the song into slices of 0.37 s");
  command.checkLast([&command, &options] {
    options.finest = command.isGiven("--finest");
    checkRhythm(command, options);
  });
  command.does([&options] { doRhythm(options); });
}

}  // namespace korvel::cli
