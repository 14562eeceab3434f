// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "precise/Settings.h"
#include "workflow/hearing/ImportDetection.h"

namespace korvel::cli {

struct ImportOptions {
  std::vector<std::string> files;
  std::optional<std::string> album;   ///< Made when missing; one for each file when not given.
  std::optional<std::string> title;   ///< Of the song; after the file when not given.
  std::optional<std::string> tuning;  ///< For this import only; the active one when not given.
  ImportDetection detection = ImportDetection::precise;
  precise::Settings settings{};  ///< Of the precise detection.
  bool json = false;
  bool stepped = false;  ///< Through the run loop's timer, as a window does it.
};

/// Imports each file into a song of its own, saves it and prints it. A file that cannot be imported
/// is reported and leaves nothing behind; the others go on. Answers the exit status.
int importFiles(const ImportOptions& options);

}  // namespace korvel::cli
