// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "precise/Scale.h"
#include "precise/judging/Candidate.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/PartialShares.h"
#include "precise/solving/Smoothed.h"

namespace korvel::precise {

/// What a note ends in: how strongly everything sounds, frame by frame, and the other notes. Before
/// the recording begins and after it ends everything is as in the nearest frame.
class EndSurroundings {
 public:
  /// What was seen of the recording.
  struct Seen {
    const FrameTable& activations;
    /// The largest activation of each frame.
    std::span<const float> loudest;
    const FrameTable& spectra;
    const Flux& flux;
    /// What the bins were multiplied by, as they resonate.
    const BinRow& gains;
  };

  /// notes: those that were taken, in the order of sortByOnset, with the ends that were tracked.
  /// All must outlive this.
  EndSurroundings(const Seen& seen, std::span<const Candidate> notes);

  std::span<const Candidate> notes() const { return m_notes; }
  Frame frames() const { return static_cast<Frame>(m_seen.activations.frames()); }
  /// Of the notes, the first that may sound, as tracked, shortly before note i begins.
  std::size_t firstBeside(std::size_t i) const { return m_firstBeside[i]; }
  /// The mean number of notes that sound while any does.
  float texture() const { return m_texture; }
  /// How steeply everything falls where it falls most, and notes where they do, as logarithms of
  /// ratios: less in a room that goes on to ring.
  float fall() const { return m_fall; }
  float fallOfNotes() const { return m_fallOfNotes; }

  /// How strongly a pitch sounds, the loudest one, and all together.
  float level(std::size_t pitch, Frame frame) const;
  float loudest(Frame frame) const;
  float total(Frame frame) const;
  /// How much everything rises around the frame.
  float stroke(Frame frame) const;
  /// The mean level of a group of a pitch's partials, each by its share.
  float partials(std::size_t pitch, const PartialShares& shares, const PartialGroup& group,
                 Frame frame) const;
  /// A little after a note began.
  PartialShares sharesOf(const Candidate& note) const;
  /// What the fundamental of a pitch was multiplied by, as it resonates.
  float gain(std::size_t pitch) const { return m_seen.gains[fundamentalBin(pitch)]; }

 private:
  Frame inside(Frame frame) const;
  void findFirstBeside();
  float fallOfTotals() const;
  float steepestFall(const Candidate& note) const;
  float medianOfSteepestFalls() const;

  Seen m_seen;
  Smoothed m_level;
  std::span<const Candidate> m_notes;
  std::vector<std::size_t> m_firstBeside;
  std::vector<float> m_totals;
  float m_texture = 0;
  float m_fall = 0;
  float m_fallOfNotes = 0;
};

}  // namespace korvel::precise
