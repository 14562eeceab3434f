// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/KeyChordPrices.h"

namespace korvel::chords {

KeyChordPrices::KeyChordPrices(const SearchWeights& weights) {
  for (std::size_t key = 0; key < kKeys; ++key) {
    const auto mode = static_cast<Mode>(key / kClasses);
    const float ofMode = mode == Mode::blues ? weights.blues : 0;
    beat[key].fill(ofMode);
    for (std::size_t chord = 0; chord < kSearched; ++chord) {
      const std::size_t root = chord / kSearchedKinds, tonic = key % kClasses;
      const auto degree = static_cast<int>((root + kClasses - tonic) % kClasses);
      const Home home = homeOf(mode, degree, static_cast<Kind>(chord % kSearchedKinds));
      const float share = home == Home::own ? 0 : home == Home::borrowed ? weights.borrowed : 1;
      beat[key][chord] += share * weights.foreign;
      entry[key][chord] = share * weights.entry;
    }
  }
}

}  // namespace korvel::chords
