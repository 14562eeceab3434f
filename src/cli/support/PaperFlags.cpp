// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/PaperFlags.h"

#include <charconv>
#include <filesystem>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "platform/files/Files.h"
#include "platform/files/OtherProgram.h"

namespace korvel::cli {
namespace {

namespace fs = std::filesystem;

/// It lies there in an installation and in a build folder.
fs::path drawingProgram() {
  return platform::executableFolder().parent_path() / "libexec" / "korvel-paper";
}

/// What it writes: the files, each behind a line that tells how many bytes it has. Empty when it is
/// not that.
std::vector<std::string> filesIn(std::string_view output) {
  std::vector<std::string> files;
  while (!output.empty()) {
    std::size_t size = 0;
    const auto [end, error] = std::from_chars(output.data(), output.data() + output.size(), size);
    const auto line = static_cast<std::size_t>(end - output.data()) + 1;
    if (error != std::errc{} || line + size > output.size()) return {};
    files.emplace_back(output.substr(line, size));
    output.remove_prefix(line + size);
  }
  return files;
}

std::vector<std::string> drawn(const std::string& name, const std::string& format,
                               const std::string& paper, const PrintedSong& song) {
  const fs::path program = drawingProgram();
  if (!platform::isThere(program))
    throw CliError(name + ": cannot be drawn, as " + program.string() +
                   " is not there; install all of Korvel");
  const auto result = platform::runProgram(program, {format, paper}, handedOver(song));
  auto files = result.status == 0 ? filesIn(result.output) : std::vector<std::string>();
  if (files.empty()) throw CliError(name + ": could not be drawn; nothing was written");
  return files;
}

void addFiles(std::vector<FilledFile>& files, const std::string& name,
              std::vector<std::string> contents, bool force) {
  const std::size_t count = contents.size();
  const auto numbered = [&](std::size_t number) {
    return nameOfPart(name, number, count).string();
  };
  for (std::size_t i = 0; i < count; ++i) {
    files.emplace_back(OutputFile(numbered(i + 1), force), std::move(contents[i]));
    if (count > 1) files.back().first.check();
  }
  if (count > 1)
    Console::attached().note(name + ": too high for one picture, and so in several: " +
                             numbered(1) + " to " + numbered(count));
}

}  // namespace

void addPaperFlags(Command& command, PaperFlags& flags, const std::string& what) {
  command.option("--pdf", flags.pdf, what + " on paper, as PDF").shownAs("FILE");
  command.option("--png", flags.png, what + " as one picture").shownAs("FILE");
  command.option("--svg", flags.svg, what + " as one picture that can be scaled").shownAs("FILE");
  command
      .option("--paper", flags.paper,
              "Size of the paper, whose width pictures have (default: that of your country)")
      .oneOf({"a4", "letter"});
}

std::vector<FilledFile> drawnFiles(const PaperFlags& flags, const PrintedSong& song, bool force) {
  OutputFile::requireDifferent({flags.pdf, flags.png, flags.svg});
  const std::pair<const std::optional<std::string>&, const char*> wanted[] = {
      {flags.pdf, "pdf"}, {flags.png, "png"}, {flags.svg, "svg"}};
  for (const auto& [name, format] : wanted)
    if (name) OutputFile(*name, force).check();
  std::vector<FilledFile> files;
  for (const auto& [name, format] : wanted)
    if (name) addFiles(files, *name, drawn(*name, format, flags.paper, song), force);
  return files;
}

}  // namespace korvel::cli
