// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/hearing/Hearing.h"

namespace korvel {

/// Hears a recording as a whole, note by note, and then makes chords of what was heard, fingered as
/// a hand would play them. Steps of listening bring no chord. Cut short, it makes chords of what it
/// has listened to.
class PreciseHearing final : public Hearing {
 public:
  /// The sound is a source that delivers samples.
  PreciseHearing(std::shared_ptr<QBSampleSource> sound, const HearingTask& task);
  ~PreciseHearing() override;

  bool hasCheapChords() const override { return true; }
  bool cutShort() override;

 private:
  PreciseHearing(const std::shared_ptr<QBChordAnalyser>& analyser, const HearingTask& task);
};

}  // namespace korvel
