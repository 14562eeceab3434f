// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/TrackSearch.h"

#include <array>

#include "rhythm/beats/BeatFit.h"
#include "rhythm/beats/BeatSearch.h"

namespace korvel::rhythm {
namespace {

/// What a search and the fit of its beats are done with.
struct Manner {
  Division division;
  double stiffness;
  double smoothness;
  bool alone = false;  ///< Only if its division is wished.
};
constexpr std::array kManners{Manner{Division::binary, 45, 8}, Manner{Division::ternary, 45, 8},
                              Manner{Division::binary, 120, 40},
                              Manner{Division::ternary, 120, 40, true}};

BeatSearchSettings settingsOf(const Manner& manner, const WishedLimits& wished) {
  return {manner.division, manner.stiffness, wished.searched().shortest, wished.searched().longest};
}

}  // namespace

platform::Slices TrackSearch::run() {
  constexpr double kShareOfEach = 1.0 / static_cast<double>(kManners.size());
  for (std::size_t i = 0; i < kManners.size(); ++i) {
    const Manner& manner = kManners[i];
    if (!m_wished.allows(manner.division)) continue;
    if (manner.alone && m_wished.allows(Division::binary)) continue;
    BeatSearch search(m_onsets, settingsOf(manner, m_wished), m_wished.knownBeats());
    platform::Slices searching = search.run();
    while (searching.next()) co_yield kShareOfEach*(static_cast<double>(i) + searching.done());
    m_tracks.push_back(search.track());
    const auto fixed = m_wished.limits().fixedBeats;
    fitBeats(m_tracks.back(), m_onsets, {manner.division, manner.smoothness, fixed});
  }
}

}  // namespace korvel::rhythm
