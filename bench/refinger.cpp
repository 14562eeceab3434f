// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-refinger: chooses strings for notes that are known, such as the labels of recordings.
// Scored against the same labels, its results tell what the fingering gets right whatever is heard.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "analysis/HearingSettings.h"
#include "cli/support/CommandLine.h"
#include "cli/support/DetectionFlags.h"
#include "fingering/Fingering.h"
#include "platform/files/Files.h"

namespace {

using namespace korvel::fingering;
using Settings = korvel::HearingSettings;
using nlohmann::json;

std::vector<Note> notesOf(const json& list) {
  std::vector<Note> notes;
  for (const json& note : list)
    notes.push_back({.onset = note.at("onset"),
                     .end = note.at("offset"),
                     .pitch = note.at("midi"),
                     .strength = note.value("strength", 1.0F),
                     .probability = note.value("probability", 1.0F)});
  return notes;
}

json refingered(const std::filesystem::path& file, const Fingering& fingering) {
  std::ifstream in(file);
  json song = json::parse(in);
  std::vector<Note> notes = notesOf(song.at("notes"));
  fingering.place(notes);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    json& note = song["notes"][i];
    const bool played = notes[i].string >= 0;
    note["string"] = played ? json(notes[i].string) : json();
    note["fret"] = played ? json(notes[i].fret) : json();
  }
  return song;
}

struct Options {
  std::string folder;
  std::vector<std::string> files;
  Settings settings;
};

void refinger(const Options& options) {
  const Fingering fingering(korvel::kStandardPitches, options.settings.fingering);
  for (const std::filesystem::path file : options.files)
    korvel::platform::writeAtomically(std::filesystem::path(options.folder) / file.filename(),
                                      refingered(file, fingering).dump(1));
}

}  // namespace

int main(int argc, char** argv) {
  korvel::cli::CommandLine line("Chooses strings for the notes of JSON files.", "korvel-refinger");
  korvel::cli::Command& tool = line.root();
  auto& options = tool.own<Options>();
  tool.option("--output", options.folder, "Folder for the results").required();
  tool.option("FILE", options.files, R"(As "korvel-cli transcribe" writes them)").required();
  korvel::cli::addDetectionFlags(tool, options.settings);
  tool.does([&options] { refinger(options); });
  if (const auto ended = line.read(argc, argv)) return *ended;
  try {
    return line.chosen().run();
  } catch (const std::exception& error) {
    std::cerr << "korvel-refinger: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
