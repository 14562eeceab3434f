// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/Detection.h"

#include "audio/MonoTrack.h"
#include "recording/hearing/ClassicHearing.h"
#include "recording/hearing/PreciseHearing.h"

namespace korvel {
namespace {

using Turn = platform::Workers::Turn;
using Made = std::unique_ptr<Hearing>;

constexpr Detection kClassic{
    .needsInstrument = true,
    .ofFile = [](const std::filesystem::path& file, const HearingTask& task) -> Made {
      return std::make_unique<ClassicHearing>(file, task);
    },
    .ofSound = nullptr};

constexpr Detection kPrecise{
    .needsInstrument = false,
    .ofFile = [](const std::filesystem::path& file, const HearingTask& task) -> Made {
      if (task.listening) return std::make_unique<PreciseHearing>(task);
      return std::make_unique<PreciseHearing>(std::make_shared<MonoTrack>(file), task, Turn::last);
    },
    .ofSound = [](std::shared_ptr<QBSampleSource> sound, const HearingTask& task) -> Made {
      // Whoever has just played waits for it; an import may take its time.
      return std::make_unique<PreciseHearing>(std::move(sound), task, Turn::next);
    }};

}  // namespace

const Detection& detectionOf(ImportDetection chosen) {
  return chosen == ImportDetection::classic ? kClassic : kPrecise;
}

}  // namespace korvel
