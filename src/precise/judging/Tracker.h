// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/judging/Candidate.h"
#include "precise/judging/Tables.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"

namespace korvel::precise {

/// Follows the activation of each pitch through a recording and cuts it into candidates for notes.
class Tracker {
 public:
  /// activations: kPitches a frame. Both must outlive the tracker.
  Tracker(const FrameTable& activations, const Flux& flux, const TrackerSettings& settings);

  /// Appends the candidates of all pitches, in order of pitch, then of time.
  platform::Slices track(std::vector<Candidate>& found);

 private:
  /// Pitches whose curves are loaded together, as they lie together in the table.
  static constexpr std::size_t kTogether = 10;

  platform::Slices findLoudest();
  platform::Slices loadCurves(std::size_t first);
  void choose(std::size_t pitch);
  void trackChosen(std::vector<Candidate>& found) const;
  /// The curve, which is 0 outside the recording.
  float level(Frame frame) const;
  float highest(Frame first, Frame end) const;

  bool starts(Frame frame) const;
  bool ends(const Candidate& note, Frame frame) const;
  bool isStruck(const Candidate& note, Frame frame) const;
  bool rises(const Candidate& note, Frame frame) const;
  Candidate noteAt(Frame middle, Frame earliest) const;
  std::optional<Candidate> begin(Frame frame, Frame earliest) const;
  std::optional<Candidate> beginAgain(const Candidate& note, Frame frame) const;
  void keep(Candidate note, Frame end, std::vector<Candidate>& found) const;

  const FrameTable& m_activations;
  const Flux& m_flux;
  TrackerSettings m_settings;
  /// The activation of the loudest pitch in each frame.
  std::vector<float> m_loudest;
  std::size_t m_pitch = 0;
  /// The curves of kTogether pitches, one after the other, each with a margin on both sides.
  std::vector<float> m_curves;
  const float* m_curve = nullptr;
};

}  // namespace korvel::precise
