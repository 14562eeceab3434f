// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include "analysis/HearingSettings.h"
#include "analysis/beats/HeardSound.h"
#include "analysis/chords/ChordSupply.h"
#include "analysis/chords/QBChordAnalyser.h"
#include "music/Neck.h"
#include "platform/loop/Workers.h"

namespace korvel {

class Listening;

/// Has a recording heard as a whole by another thread, then makes chords of it: of its slices
/// (`BlockChords`) or of what is written in its bars (`ChordsOnBeats`).
class PreciseAnalyser final : public QBChordAnalyser {
 public:
  /// The source, which may be set later, has to deliver samples (`readSamples`) when the first step
  /// is taken. Without a tuning the guitar is tuned as usual. turn: when the
  /// recording is listened to, beside others.
  PreciseAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning,
                  const HearingSettings& settings,
                  platform::Workers::Turn turn = platform::Workers::Turn::last);
  /// Of a recording that is listened to already, in that tuning.
  PreciseAnalyser(std::shared_ptr<Listening> listening, QBTuning* tuning);
  ~PreciseAnalyser() override;

  /// Answers none for as long as the recording is listened to.
  QBChord* nextChord(QBSong* song) override;
  /// Returns when the next step may bring a chord, or after a few hundredths of a second.
  void wait() const;
  /// Leaves out what was not read of the recording yet; whether there was something.
  bool cutShort();
  /// Listens no more. No chord comes then.
  void giveUp();
  /// What was heard, once it was; none before that and for silence that nobody listened to.
  const HeardSound* heard() const { return m_heard ? &*m_heard : nullptr; }
  bool atEnd() const override;
  double progress() const override;

 private:
  void listen();

  OpenPitches m_open{};
  HearingSettings m_settings{};
  platform::Workers::Turn m_turn = platform::Workers::Turn::last;
  std::shared_ptr<Listening> m_listening;  ///< None before it listens, and afterwards.
  std::optional<HeardSound> m_heard;
  std::unique_ptr<ChordSupply> m_chords;  ///< Once all is heard.
  std::size_t m_made = 0;
};

}  // namespace korvel
