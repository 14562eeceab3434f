// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/DetectionFlags.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/HearingSettings.h"
#include "chords/voices/Voice.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/RhythmFlags.h"
#include "cli/support/UsageError.h"
#include "model/instruments/QBInstrument.h"
#include "model/store/QBTabMgr.h"
#include "workflow/hearing/Detection.h"

namespace korvel::cli {
namespace {

using precise::FingeringOptions;
using precise::Position;

struct NamedPlayers {
  std::string_view name;
  Players players;
};

constexpr std::array<NamedPlayers, 3> kPlayers{
    {{"guitar", Players::guitar}, {"band", Players::band}, {"auto", Players::automatic}}};

Position positionNamed(const std::string& word) {
  if (word == "anywhere") return {};
  if (word == "open") return {Position::Kind::open};
  int fret = 0;
  const char* end = word.data() + word.size();
  const auto read = std::from_chars(word.data(), end, fret);
  if (read.ec != std::errc() || read.ptr != end || fret < 1 || fret > FingeringOptions::kMostFrets)
    throw UsageError("--position", "is open, anywhere or a fret from 1 to 24");
  return {Position::Kind::around, fret};
}

/// What is said of each detection, one after the other.
std::string ofEach(const std::function<std::string(const Detection&)>& said, const char* between) {
  std::string all;
  for (const Detection* each : detections()) all += (all.empty() ? "" : between) + said(*each);
  return all;
}

std::string names(const char* between) {
  return ofEach([](const Detection& each) { return std::string(each.name); }, between);
}

std::string manners(const Detection& usual) {
  const auto manner = [&](const Detection& each) {
    return std::string(each.manner) + " (" + std::string(each.name) +
           (&each == &usual ? ", default)" : ")");
  };
  return ofEach(manner, " or ");
}

const Detection* chosen(const std::string& word) {
  if (const Detection* named = detectionNamed(word)) return named;
  throw UsageError("--detection", "is " + names(" or "));
}

void requireOnTheNeck(const FingeringOptions& fingering) {
  if (fingering.position.kind == Position::Kind::around &&
      fingering.position.fret > fingering.frets)
    throw UsageError("--position",
                     "is beyond fret " + std::to_string(fingering.frets) + "; see --frets");
}

void requireNoneOf(const Command& command, std::initializer_list<const char*> flags,
                   const Detection& detection) {
  for (const char* flag : flags)
    if (command.isGiven(flag))
      throw UsageError(flag, "has no meaning with --detection " + std::string(detection.name));
}

}  // namespace

void addDetectionFlags(Command& command, const Detection*& detection, HearingSettings& settings) {
  command
      .option(
          "--detection", [&detection](const std::string& word) { detection = chosen(word); },
          "How it is heard: " + manners(*detection))
      .shownAs(names("|"));
  addDetectionFlags(command, settings);
  addGridFlag(command, settings,
              "What a song is written in: bars at the recording's tempo (beats, default) or slices "
              "of 0.37 s (slices)");
  addRhythmFlags(command, settings);
  command.checkAtOnce([&] {
    requireOnTheNeck(settings.fingering);
    if (!detection->usesSettings)
      requireNoneOf(command,
                    {"--sensitivity", "--position", "--frets", "--capo", "--grid", "--tempo",
                     "--metre", "--swing", "--straight", "--finest"},
                    *detection);
  });
}

void addDetectionFlags(Command& command, HearingSettings& settings) {
  FingeringOptions& fingering = settings.fingering;
  command
      .option("--sensitivity", settings.sensitivity,
              "How faint or doubtful a note may be, 0 to 1 (default: 0.5)")
      .within(0, 1)
      .shownAs("SHARE");
  command
      .option(
          "--position",
          [&fingering](const std::string& word) { fingering.position = positionNamed(word); },
          "Where on the neck it is played: open, anywhere (default), or around a fret")
      .shownAs("open|anywhere|FRET");
  command.option("--frets", fingering.frets, "Highest fret that is played, 12 to 24 (default: 19)")
      .wholeWithin(FingeringOptions::kFewestFrets, FingeringOptions::kMostFrets)
      .shownAs("FRET");
  command.option("--capo", fingering.capo, "Fret of the capo; frets still count from the nut")
      .wholeWithin(0, FingeringOptions::kHighestCapo)
      .shownAs("FRET");
  command.checkAtOnce([&fingering] { requireOnTheNeck(fingering); });
}

void addConcertPitchFlag(Command& command, HearingSettings& settings) {
  constexpr double kLowestA = 410;
  constexpr double kHighestA = 470;
  command
      .option("--a4", settings.concertA,
              "Hertz that its A is tuned to, when that is half a semitone off 440 or more, such as "
              "415")
      .within(kLowestA, kHighestA)
      .shownAs("HERTZ");
}

void addPlayersFlag(Command& command, HearingSettings& settings) {
  const auto read = [&settings](const std::string& word) {
    for (const NamedPlayers& each : kPlayers)
      if (each.name == word) {
        settings.players = each.players;
        return;
      }
    throw UsageError("--what", "is guitar, band or auto");
  };
  const auto* usual = std::ranges::find(kPlayers, settings.players, &NamedPlayers::players);
  command
      .option("--what", read,
              "What plays: one guitar, heard note by note (guitar), several instruments, of which "
              "the chords are heard (band), or whichever it sounds like (auto); default: " +
                  std::string(usual->name))
      .shownAs("guitar|band|auto");
}

const StrumPattern& strumPatternOf(const std::string& flag, const std::string& name) {
  if (const StrumPattern* named = strumPatternNamed(name)) return *named;
  std::string all;
  for (const StrumPattern& each : strumPatterns())
    all.append(all.empty() ? "" : ", ").append(each.name);
  throw UsageError(flag, "is one of " + all);
}

void addStrumFlag(Command& command, HearingSettings& settings) {
  const auto read = [&settings](const std::string& name) {
    settings.strum = &strumPatternOf("--strum", name);
  };
  command
      .option("--strum", read,
              "How a band's chords are strummed: a pattern, see strum --list, or none; default: " +
                  std::string(settings.strum->name))
      .shownAs("NAME|none");
}

Option addVoicesFlag(Command& command, HearingSettings& settings) {
  const auto read = [&settings](const std::string& words) {
    const auto named = chords::voicesNamed(words);
    if (!named || named->empty()) throw UsageError("--voices", "is melody, bass or melody,bass");
    settings.voices = *named;
  };
  return command
      .option("--voices", read,
              "Which voices of a band are heard beside its chords, where they are clear enough: "
              "melody, bass or both with a comma between them")
      .shownAs("VOICES");
}

void requireInstrumentFor(const Detection& detection) {
  if (detection.needsInstrument && !QBTabMgr::db().selectedInstrument())
    throw CliError(QBTabMgr::storePath() +
                   ": no instrument is active, so no tone can be confirmed");
}

}  // namespace korvel::cli
