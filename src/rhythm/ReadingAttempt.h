// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "rhythm/WishedLimits.h"
#include "rhythm/judging/ReadingSearch.h"

namespace korvel::rhythm {

/// What a recording has been turned into before its beats are looked for; all of it is read as long
/// as an attempt lives.
struct HeardOnsets {
  std::span<const Onset> onsets;  ///< One at least.
  const ChordChanges& changes;
  double end = 0;  ///< Of the last note, in seconds.
};

/// Looks for the best reading that some wishes allow.
class ReadingAttempt {
 public:
  ReadingAttempt(const HeardOnsets& heard, const Wishes& wishes);

  /// Beats that are known already, to be multiplied as those that are found.
  void addTrack(const BeatTrack& track) { m_tracks.push_back(track); }
  platform::Slices run();

  // After the run.
  std::span<const Candidate> candidates() const { return m_search.candidates(); }
  const Candidate& best() const { return candidates().front(); }
  const BeatTrack& track() const { return m_search.track(best()); }
  const ReadingLimits& limits() const { return m_wished.limits(); }
  /// How well the best reading explains when notes are struck: a logarithm for each of them.
  double fit() const;

 private:
  const HeardOnsets& m_heard;
  WishedLimits m_wished;
  ReadingSearch m_search;
  std::vector<BeatTrack> m_tracks;
};

/// The tempo next to a wished one that beats a minute can have when they are doubled, halved and so
/// on.
double tempoNextTo(double wished, double found);

}  // namespace korvel::rhythm
