// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/ReadingAttempt.h"

#include <array>
#include <cmath>
#include <utility>

#include "rhythm/TrackSearch.h"

namespace korvel::rhythm {

ReadingAttempt::ReadingAttempt(const HeardOnsets& heard, const Wishes& wishes)
    : m_heard(heard),
      m_wished(wishes, heard.onsets.front().time, heard.end),
      m_search(heard.onsets, heard.changes, m_wished.limits()) {}

platform::Slices ReadingAttempt::run() {
  constexpr double kShareOfSearches = 0.4;
  TrackSearch searches(m_heard.onsets, m_wished);
  platform::Slices tracking = searches.run();
  while (tracking.next()) co_yield kShareOfSearches* tracking.done();
  for (BeatTrack& track : searches.take()) m_tracks.push_back(std::move(track));
  co_yield kShareOfSearches;
  platform::Slices judging = m_search.run(std::move(m_tracks));
  while (judging.next()) co_yield kShareOfSearches + (1 - kShareOfSearches) * judging.done();
}

double ReadingAttempt::fit() const { return best().features[Feature::barFit] / kWitnesses; }

double tempoNextTo(double wished, double found) {
  static constexpr std::array kRatios{0.25, 1 / 3.0, 0.5, 2 / 3.0, 1.0, 1.5, 2.0, 3.0, 4.0};
  double next = found;
  for (const double ratio : kRatios) {
    const double tempo = ratio * found;
    if (std::abs(std::log(tempo / wished)) < std::abs(std::log(next / wished))) next = tempo;
  }
  return next;
}

}  // namespace korvel::rhythm
