// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-refinger: chooses strings for notes that are known, such as the labels of recordings.
// Scored against the same labels, its results tell what the fingering gets right whatever is heard.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/support/DetectionFlags.h"
#include "platform/files/Files.h"
#include "precise/Settings.h"
#include "precise/fingering/Fingering.h"

namespace {

using namespace korvel::precise;
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

}  // namespace

int main(int argc, char** argv) {
  std::filesystem::path folder;
  std::vector<std::filesystem::path> files;
  Settings settings;
  CLI::App app("Chooses strings for the notes of JSON files.", "korvel-refinger");
  app.add_option("--output", folder, "Folder for the results")->required();
  app.add_option("FILE", files, R"(As "korvel-cli transcribe" writes them)")->required();
  korvel::cli::addDetectionFlags(app, settings);
  CLI11_PARSE(app, argc, argv);
  try {
    const Fingering fingering(korvel::kStandardPitches, settings.fingering);
    for (const auto& file : files)
      korvel::platform::writeAtomically(folder / file.filename(),
                                        refingered(file, fingering).dump(1));
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "korvel-refinger: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
