// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/loop/Workers.h"
#include "recording/hearing/Hearing.h"

namespace korvel {

class PreciseAnalyser;

/// Hears a recording as a whole, note by note, and then makes chords of what was heard, fingered as
/// a hand would play them. Another thread listens; steps until then bring no chord. Cut short, it
/// makes chords of what it has listened to.
class PreciseHearing final : public Hearing {
 public:
  /// The sound is a source that delivers samples.
  PreciseHearing(std::shared_ptr<QBSampleSource> sound, const HearingTask& task,
                 platform::Workers::Turn turn);
  /// Of the sound that the task's listening is for.
  explicit PreciseHearing(const HearingTask& task);
  ~PreciseHearing() override;

  void wait() const override;
  bool hasCheapChords() const override { return true; }
  const HeardSound* heard() const override;
  bool cutShort() override;
  void end() override;

 private:
  PreciseHearing(const std::shared_ptr<PreciseAnalyser>& analyser, const HearingTask& task);

  std::shared_ptr<PreciseAnalyser> m_heard;
};

}  // namespace korvel
