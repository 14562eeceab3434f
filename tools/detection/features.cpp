// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-detection-features: writes what the precise detection knows of every candidate for a note.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "audio/MonoTrack.h"
#include "detection/FeatureFile.h"
#include "platform/files/Files.h"
#include "precise/Engine.h"

namespace {

using namespace korvel;

std::string featuresOf(const std::string& file) {
  tools::FeatureFile features;
  precise::Engine engine(0.5, &features);
  MonoTrack track(file);
  track.startRecord(0);
  if (!track.isReading()) throw std::runtime_error(file + ": holds no sound that can be read");
  for (auto slice = track.readSamples(); !slice.empty(); slice = track.readSamples())
    engine.add(slice);
  while (engine.step()) continue;
  return features.text();
}

/// Of the file with its features.
std::filesystem::path nameFor(const std::filesystem::path& recording) {
  std::filesystem::path name = recording.stem();
  name += ".json";
  return name;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Writes what the precise detection knows of every candidate for a note.");
  std::filesystem::path folder;
  std::vector<std::string> files;
  app.add_option("--out", folder, "Folder for NAME.json of each recording NAME")
      ->required()
      ->check(CLI::ExistingDirectory);
  app.add_option("FILE", files, "Recordings")->required()->check(CLI::ExistingFile);
  CLI11_PARSE(app, argc, argv);
  try {
    for (const std::string& file : files)
      platform::writeAtomically(folder / nameFor(file), featuresOf(file));
  } catch (const std::exception& error) {
    std::cerr << "korvel-detection-features: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
