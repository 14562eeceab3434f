// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/DetectionFlags.h"

#include <charconv>
#include <initializer_list>
#include <string>

#include "cli/support/Command.h"
#include "cli/support/UsageError.h"

namespace korvel::cli {
namespace {

using precise::FingeringOptions;
using precise::Position;

constexpr int kHighestCapo = 11;

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

ImportDetection detectionNamed(const std::string& word) {
  if (word == "precise") return ImportDetection::precise;
  if (word == "classic") return ImportDetection::classic;
  throw UsageError("--detection", "is precise or classic");
}

void requireOnTheNeck(const FingeringOptions& fingering) {
  if (fingering.position.kind == Position::Kind::around &&
      fingering.position.fret > fingering.frets)
    throw UsageError("--position",
                     "is beyond fret " + std::to_string(fingering.frets) + "; see --frets");
}

void requireNoneOf(const Command& command, std::initializer_list<const char*> flags) {
  for (const char* flag : flags)
    if (command.isGiven(flag)) throw UsageError(flag, "has no meaning with --detection classic");
}

}  // namespace

void addDetectionFlags(Command& command, ImportDetection& detection, precise::Settings& settings) {
  command
      .option(
          "--detection",
          [&detection](const std::string& word) { detection = detectionNamed(word); },
          "How it is heard: note by note (precise, default) or block by block (classic)")
      .shownAs("precise|classic");
  addDetectionFlags(command, settings);
  command.checkAtOnce([&] {
    requireOnTheNeck(settings.fingering);
    if (detection == ImportDetection::classic)
      requireNoneOf(command, {"--sensitivity", "--position", "--frets", "--capo"});
  });
}

void addDetectionFlags(Command& command, precise::Settings& settings) {
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
      .wholeWithin(0, kHighestCapo)
      .shownAs("FRET");
  command.checkAtOnce([&fingering] { requireOnTheNeck(fingering); });
}

}  // namespace korvel::cli
