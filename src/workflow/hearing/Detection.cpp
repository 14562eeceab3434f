// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/Detection.h"

#include <algorithm>
#include <utility>

#include "audio/MonoTrack.h"
#include "recording/hearing/ClassicHearing.h"
#include "recording/hearing/PreciseHearing.h"

namespace korvel {
namespace {

using platform::phrase;
using Turn = platform::Workers::Turn;
using Made = std::unique_ptr<Hearing>;

/// Chords while they are played, for detections that hear a recording as a whole, too.
Made blockByBlock(std::shared_ptr<QBSampleSource> live, const HearingTask& task) {
  return std::make_unique<ClassicHearing>(std::move(live), task);
}

constexpr Detection kPrecise{
    .name = "precise",
    .manner = "note by note",
    .title = phrase("Detection", "Precise: note by note"),
    .ofNewInstrument =
        phrase("Detection", "Your settings have the precise one: imports will be heard as before."),
    .needsInstrument = false,
    .usesSettings = true,
    .canBeAhead = true,
    .ofFile = [](const std::filesystem::path& file, const HearingTask& task) -> Made {
      if (task.listening) return std::make_unique<PreciseHearing>(task);
      return std::make_unique<PreciseHearing>(std::make_shared<MonoTrack>(file), task, Turn::last);
    },
    .ofLive = blockByBlock,
    .ofSound = [](std::shared_ptr<QBSampleSource> sound, const HearingTask& task) -> Made {
      // Whoever has just played waits for it; an import may take its time.
      return std::make_unique<PreciseHearing>(std::move(sound), task, Turn::next);
    }};

constexpr Detection kClassic{
    .name = "classic",
    .manner = "block by block",
    .title = phrase("Detection", "Classic: block by block"),
    .ofNewInstrument =
        phrase("Detection", "Your settings have the classic one: imports will be heard with it."),
    .needsInstrument = true,
    .usesSettings = false,
    .canBeAhead = false,
    .ofFile = [](const std::filesystem::path& file, const HearingTask& task) -> Made {
      return std::make_unique<ClassicHearing>(file, task);
    },
    .ofLive = blockByBlock,
    .ofSound = nullptr};

constexpr const Detection* kAll[]{&kPrecise, &kClassic};

}  // namespace

std::span<const Detection* const> detections() { return kAll; }

const Detection* detectionNamed(std::string_view name) {
  const auto found = std::ranges::find(kAll, name, &Detection::name);
  return found == std::end(kAll) ? nullptr : *found;
}

const Detection& preciseDetection() { return kPrecise; }

const Detection& classicDetection() { return kClassic; }

}  // namespace korvel
