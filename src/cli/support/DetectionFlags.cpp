// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/DetectionFlags.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <initializer_list>
#include <string>

#include "cli/support/NumberRange.h"

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
    throw CLI::ValidationError("--position", "is open, anywhere or a fret from 1 to 24");
  return {Position::Kind::around, fret};
}

ImportDetection detectionNamed(const std::string& word) {
  if (word == "precise") return ImportDetection::precise;
  if (word == "classic") return ImportDetection::classic;
  throw CLI::ValidationError("--detection", "is precise or classic");
}

void requireOnTheNeck(const FingeringOptions& fingering) {
  if (fingering.position.kind == Position::Kind::around &&
      fingering.position.fret > fingering.frets)
    throw CLI::ValidationError(
        "--position", "is beyond fret " + std::to_string(fingering.frets) + "; see --frets");
}

void requireNoneOf(const CLI::App& command, std::initializer_list<const char*> flags) {
  for (const char* flag : flags)
    if (command.count(flag) > 0)
      throw CLI::ValidationError(flag, "has no meaning with --detection classic");
}

}  // namespace

void addDetectionFlags(CLI::App& command, ImportDetection& detection, precise::Settings& settings) {
  command
      .add_option_function<std::string>(
          "--detection",
          [&detection](const std::string& word) { detection = detectionNamed(word); },
          "How it is heard: note by note (precise, default) or block by block (classic)")
      ->type_name("precise|classic");
  addDetectionFlags(command, settings);
  command.parse_complete_callback([&] {
    requireOnTheNeck(settings.fingering);
    if (detection == ImportDetection::classic)
      requireNoneOf(command, {"--sensitivity", "--position", "--frets", "--capo"});
  });
}

void addDetectionFlags(CLI::App& command, precise::Settings& settings) {
  FingeringOptions& fingering = settings.fingering;
  command
      .add_option("--sensitivity", settings.sensitivity,
                  "How faint or doubtful a note may be, 0 to 1 (default: 0.5)")
      ->check(numbersWithin(0, 1))
      ->type_name("SHARE");
  command
      .add_option_function<std::string>(
          "--position",
          [&fingering](const std::string& word) { fingering.position = positionNamed(word); },
          "Where on the neck it is played: open, anywhere (default), or around a fret")
      ->type_name("open|anywhere|FRET");
  command.add_option("--frets", fingering.frets, "Highest fret that is played, 12 (default) to 24")
      ->check(CLI::Range(FingeringOptions::kFewestFrets, FingeringOptions::kMostFrets))
      ->type_name("FRET");
  command.add_option("--capo", fingering.capo, "Fret of the capo; frets still count from the nut")
      ->check(CLI::Range(0, kHighestCapo))
      ->type_name("FRET");
  command.parse_complete_callback([&fingering] { requireOnTheNeck(fingering); });
}

}  // namespace korvel::cli
