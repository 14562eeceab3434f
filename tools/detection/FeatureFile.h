// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "precise/Observer.h"

namespace korvel::tools {

/// What the formulas of the precise detection decided on in one recording, as JSON:
///   "hop": seconds from one frame to the next
///   "tracked": whatever may be a note, as [pitch, onset, end]
///   "reattacks": of these, the re-attacks, as [pitch, onset, end, peak, features...]
///   "notes": what was left when the re-attacks were judged, as [pitch, onset, end, peak,
///     probability by itself, features...]
///   "onsets": of notes that were taken, as [pitch, onset, end, whether it is a re-attack, what is
///     seen around the onset...]
///   "frames": of notes that were taken, some of the frames in which they may sound, as [pitch,
///     onset, frame, features...]
/// Pitches are MIDI numbers, onsets and ends frames, and features stand in the order of their
/// enumerators.
class FeatureFile final : public precise::Observer {
 public:
  void tracked(std::span<const precise::Candidate> candidates) override;
  void reattack(const precise::Candidate& candidate,
                const precise::StrikeInputs::Inputs& known) override;
  void note(const precise::Candidate& candidate,
            const precise::Features<precise::NoteFeature>& known) override;
  void onset(const precise::Candidate& note, const precise::OnsetInputs& known) override;
  void frame(const precise::Candidate& note, precise::Frame frame,
             const precise::EndInputs::Inputs& known) override;

  /// Complete once the engine has answered that all is done.
  std::string text() const;

 private:
  // Rows, each with a comma and a line break before it.
  std::string m_tracked;
  std::string m_reattacks;
  std::string m_notes;
  std::string m_onsets;
  std::string m_frames;
};

}  // namespace korvel::tools
