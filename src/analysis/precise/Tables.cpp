// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Tables.h"

#include <array>

namespace korvel::precise {

std::span<const Term<ReattackFeature>> reattackTerms() {
  using enum ReattackFeature;
  static constexpr std::array<Term<ReattackFeature>, 20> kTerms{{
      {One, One, 0.7200},
      {One, Level, 1.7996},
      {One, Ratio, 0.5440},
      {One, Rise, 5.1239},
      {One, RatioToBefore, -0.2752},
      {One, Flux, 2.0300},
      {One, FluxShare, -0.3315},
      {One, Gap, 0.5936},
      {One, Neighbours, 0.1073},
      {One, NewNeighbours, 0.0558},
      {One, Overall, -1.2001},
      {One, Pitch, 0.8413},
      {One, Soon, -0.1096},
      {Ratio, Overall, -0.2619},
      {Flux, Neighbours, -0.0927},
      {Rise, Overall, 2.4957},
      {Ratio, Ratio, 0.2122},
      {Neighbours, Ratio, -0.5336},
      {Overall, Overall, -0.6021},
      {RatioToBefore, Gap, 0.0996},
  }};
  return kTerms;
}

std::span<const Term<NoteFeature>> noteTerms() {
  using enum NoteFeature;
  static constexpr std::array<Term<NoteFeature>, 37> kTerms{{
      {One, One, 2.7880},
      {One, Peak, 1.1936},
      {One, PeakShare, -0.4684},
      {One, Mean, -1.1383},
      {One, MeanShare, 1.0787},
      {One, Duration, 0.7080},
      {One, Flux, -0.2117},
      {One, OctaveBelow, 0.3059},
      {One, TwelfthBelow, 0.9093},
      {One, TwoOctavesBelow, 0.8535},
      {One, FarBelow, 0.5978},
      {One, OctaveAbove, 1.1115},
      {One, TwelfthAbove, 0.4396},
      {One, Beside, -2.5135},
      {One, Polyphony, 1.3800},
      {One, Covered, 0.3685},
      {One, Pitch, -0.8023},
      {Pitch, Pitch, -2.8540},
      {One, Reattack, -0.3019},
      {One, Decay, 2.3763},
      {One, Share, 1.5032},
      {One, Fundamental, -3.4272},
      {MeanShare, OctaveBelow, -1.6371},
      {MeanShare, TwelfthBelow, -0.6040},
      {MeanShare, FarBelow, 4.1966},
      {Mean, MeanShare, -0.7996},
      {Mean, Covered, 0.8639},
      {Duration, Mean, 0.0258},
      {Duration, Duration, -0.1474},
      {Mean, Mean, -0.7647},
      {MeanShare, MeanShare, 0.3549},
      {OctaveBelow, Pitch, 0.7972},
      {Mean, Pitch, 0.2306},
      {Fundamental, Fundamental, -1.2684},
      {Fundamental, Mean, -0.7356},
      {Flux, Mean, 0.1993},
      {Flux, Covered, -0.4101},
  }};
  return kTerms;
}

}  // namespace korvel::precise
