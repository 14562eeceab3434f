// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/RhythmFlags.h"

#include <array>
#include <string>
#include <string_view>

#include "analysis/beats/WrittenChords.h"
#include "cli/support/Command.h"
#include "cli/support/UsageError.h"

namespace korvel::cli {
namespace {

struct NamedSignature {
  std::string_view name;
  TimeSignature signature;
};

constexpr std::array<NamedSignature, 5> kMetres{
    {{"2/4", {2, 4}}, {"3/4", {3, 4}}, {"4/4", {4, 4}}, {"6/8", {6, 8}}, {"12/8", {12, 8}}}};

rhythm::Metre metreNamed(const std::string& word) {
  for (const NamedSignature& each : kMetres)
    if (each.name == word) return *metreOf(each.signature);
  throw UsageError("--metre", "is 2/4, 3/4, 4/4, 6/8 or 12/8");
}

}  // namespace

void addGridFlag(Command& command, HearingSettings& settings, const std::string& help) {
  const auto read = [&settings](const std::string& word) {
    if (word != "beats" && word != "slices") throw UsageError("--grid", "is beats or slices");
    settings.grid = word == "beats" ? Grid::beats : Grid::slices;
  };
  command.option("--grid", read, help).shownAs("beats|slices");
}

void addRhythmFlags(Command& command, HearingSettings& settings) {
  rhythm::Wishes& wishes = settings.rhythm;
  command
      .option("--tempo", wishes.tempo,
              "Beats a minute: quarters, or dotted ones in 6/8 and 12/8 (default: as heard)")
      .within(20, 400);
  command
      .option(
          "--metre", [&wishes](const std::string& word) { wishes.metre = metreNamed(word); },
          "Metre: 2/4, 3/4, 4/4, 6/8 or 12/8 (default: as heard)")
      .shownAs("METRE");
  const Option swing = command.flag(
      "--swing", [&wishes] { wishes.feel = rhythm::Feel::swing; }, "Eighths are swung");
  command
      .flag(
          "--straight", [&wishes] { wishes.feel = rhythm::Feel::straight; },
          "Eighths are not swung")
      .excludes(swing);
  const auto finest = [&wishes](const std::string& word) {
    if (word != "8" && word != "16") throw UsageError("--finest", "is 8 or 16");
    wishes.finest = word == "8" ? 8 : 16;
  };
  command
      .option("--finest", finest, "Shortest notes that are written: eighths (8) or sixteenths (16)")
      .shownAs("8|16");
}

}  // namespace korvel::cli
