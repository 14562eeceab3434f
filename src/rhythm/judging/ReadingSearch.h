// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "rhythm/Reading.h"
#include "rhythm/beats/Onset.h"
#include "rhythm/beats/TrackMultiples.h"
#include "rhythm/harmony/ChordChanges.h"
#include "rhythm/judging/BarFit.h"
#include "rhythm/judging/DivisionUse.h"
#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// One way to read the onsets: a track whose beats are divided and make bars in some way.
struct Candidate {
  std::size_t track = 0;
  Division division = Division::binary;
  Bars bars;
  bool compound = false;
  Feel feel = Feel::straight;
  double tempo = 0;  ///< Beats a minute.
  ReadingFeatures features;
  double score = 0;
  double penalty = 0;  ///< For beats that are not where they are wished; not in the score.

  Metre metre() const { return {static_cast<int>(bars.beats), compound}; }
  /// Whether a user would call them two: by tempo, metre or feel.
  bool isOther(const Candidate& than) const;
};

/// What a reading has to be.
struct ReadingLimits {
  BeatLengths lengths;
  std::optional<Metre> metre;
  std::optional<Feel> feel;
  std::optional<double> barLine;       ///< Seconds.
  std::span<const double> fixedBeats;  ///< Seconds, ascending.
  bool keepsBeats = false;             ///< The beats of the tracks are known: no multiples of them.
};

/// Scores all readings of a recording that are made of some tracks and of their multiples.
class ReadingSearch {
 public:
  /// All are read as long as the search lives.
  ReadingSearch(std::span<const Onset> onsets, const ChordChanges& changes,
                const ReadingLimits& limits);

  /// The tracks have two beats or more. One of some stiffness each: see BeatFitSettings.
  platform::Slices run(std::vector<BeatTrack> tracks);

  /// The best first, after the run; one at least.
  std::span<const Candidate> candidates() const { return m_candidates; }
  const BeatTrack& track(const Candidate& candidate) const { return m_tracks[candidate.track]; }

 private:
  struct Rated {
    BeatTrack track;
    double score = 0;
    Division division = Division::binary;
  };

  std::vector<Division> divisions() const;
  double penalty(const BeatTrack& track) const;
  std::vector<BeatTrack> variants(const BeatTrack& track) const;
  Rated rated(BeatTrack track) const;
  void keepBest(std::vector<Rated>& all);
  void scoreTrack(std::size_t track, Division division);
  void scoreBars(Candidate candidate, const OnsetPhases& phases, const PlaceFit& fit,
                 const DivisionUse& use);
  void setTextures(ReadingFeatures& features, const Candidate& candidate, const DivisionUse& use,
                   const PlaceFit& fit) const;
  void setDivisions(ReadingFeatures& features, const Candidate& candidate,
                    const DivisionUse& use) const;
  void setEdges(ReadingFeatures& features, const Candidate& candidate,
                const OnsetPhases& phases) const;
  void setContrasts(ReadingFeatures& features, const OnsetPhases& phases, const Bars& bars) const;
  bool allows(const Candidate& candidate) const;
  void rank();

  std::span<const Onset> m_onsets;
  const ChordChanges& m_changes;
  const ReadingLimits& m_limits;
  std::vector<BeatTrack> m_tracks;
  std::vector<Candidate> m_candidates;
};

}  // namespace korvel::rhythm
