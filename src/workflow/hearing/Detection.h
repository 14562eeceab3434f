// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "analysis/HearingSettings.h"
#include "platform/text/UserText.h"

namespace korvel {

class Hearing;
class QBSampleSource;
struct HearingTask;

/// A way to hear recordings: all that who lets a user choose one has to know of it. There is one
/// object of each, so that two are the same when their addresses are.
struct Detection {
  using OfFile = std::unique_ptr<Hearing> (*)(const std::filesystem::path& file,
                                              const HearingTask& task);
  using OfSound = std::unique_ptr<Hearing> (*)(std::shared_ptr<QBSampleSource> sound,
                                               const HearingTask& task);

  /// As flags and preferences write it, such as "precise".
  std::string_view name;
  /// What it goes by, for the help of the tool, such as "note by note".
  std::string_view manner;
  platform::Phrase title;
  /// What imports have of a new instrument, for who makes one.
  platform::Phrase ofNewInstrument;
  /// Without an instrument in use it hears nothing.
  bool needsInstrument;
  /// It goes by `HearingSettings`, which mean nothing to others.
  bool usesSettings;
  /// It goes on with what listens to the file already (`HearingTask::listening`).
  bool canBeAhead;
  OfFile ofFile;
  /// Of sound that is just being played.
  OfSound ofLive;
  /// Of the take of a recording; null when this is how it was heard live already.
  OfSound ofSound;
};

/// All that there are, as front ends offer them.
std::span<const Detection* const> detections();
/// None when there is none of that name.
const Detection* detectionNamed(std::string_view name);

/// As a whole, note by note, fingered as a hand would play it. What front ends choose unless told
/// otherwise.
const Detection& preciseDetection();
/// Block by block, each tone confirmed by the instrument's spectra.
const Detection& classicDetection();

}  // namespace korvel
