// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

#include "recording/hearing/Hearing.h"
#include "workflow/hearing/ImportDetection.h"

namespace korvel {

/// What a detection can do, for who lets a user choose one.
struct Detection {
  using OfFile = std::unique_ptr<Hearing> (*)(const std::filesystem::path& file,
                                              const HearingTask& task);
  using OfSound = std::unique_ptr<Hearing> (*)(std::shared_ptr<QBSampleSource> sound,
                                               const HearingTask& task);

  /// Without an instrument in use it hears nothing.
  bool needsInstrument;
  OfFile ofFile;
  /// Of the take of a recording; null when this is how it was heard live already.
  OfSound ofSound;
};

const Detection& detectionOf(ImportDetection chosen);

}  // namespace korvel
