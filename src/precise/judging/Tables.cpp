// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Tables.h"

#include <array>

namespace korvel::precise {

std::span<const Term<NoteFeature>> noteTerms() {
  using enum NoteFeature;
  static constexpr std::array<Term<NoteFeature>, 72> kTerms{{
      {One, One, -0.7610},
      {One, Peak, -0.7188},
      {One, PeakShare, -0.5388},
      {One, Mean, 1.0178},
      {One, MeanShare, 2.0972},
      {One, Duration, 0.0896},
      {One, Flux, 0.1484},
      {One, OctaveBelow, 1.0067},
      {One, TwelfthBelow, -0.0799},
      {One, TwoOctavesBelow, 0.2609},
      {One, FarBelow, -2.4104},
      {One, OctaveAbove, 1.7479},
      {One, TwelfthAbove, 1.9040},
      {One, Beside, -2.4785},
      {One, Polyphony, 1.5216},
      {One, Covered, 0.1896},
      {One, Pitch, 0.6425},
      {One, Reattack, 0.0512},
      {One, Decay, 2.8303},
      {One, Share, -1.1994},
      {One, Fundamental, -3.1365},
      {One, FundamentalToEven, 0.2031},
      {One, ThirdToEven, 0.2302},
      {One, OddToEven, 0.1999},
      {One, OddFlux, -0.1150},
      {One, FundamentalFlux, -0.4060},
      {One, LocalShare, 0.0347},
      {One, Before, -0.2711},
      {One, Sustain, 1.1144},
      {One, TwoOctavesAbove, -0.0534},
      {One, Fifths, -0.6932},
      {One, SecondPartial, -0.2242},
      {Peak, Peak, 0.3261},
      {PeakShare, PeakShare, -0.8938},
      {Mean, Mean, -0.2442},
      {MeanShare, MeanShare, 1.1194},
      {Duration, Duration, -0.2730},
      {Flux, Flux, -0.0121},
      {OctaveBelow, OctaveBelow, 0.2023},
      {TwelfthBelow, TwelfthBelow, 0.3149},
      {TwoOctavesBelow, TwoOctavesBelow, 0.4330},
      {FarBelow, FarBelow, 0.8048},
      {OctaveAbove, OctaveAbove, -0.0198},
      {TwelfthAbove, TwelfthAbove, -1.1820},
      {Beside, Beside, 0.8701},
      {Polyphony, Polyphony, -0.5602},
      {Pitch, Pitch, -2.2008},
      {Decay, Decay, -0.7323},
      {Share, Share, -0.1855},
      {Fundamental, Fundamental, -1.0849},
      {FundamentalToEven, FundamentalToEven, 0.0643},
      {ThirdToEven, ThirdToEven, 0.0267},
      {OddToEven, OddToEven, -0.2129},
      {OddFlux, OddFlux, 0.0383},
      {FundamentalFlux, FundamentalFlux, -0.1055},
      {LocalShare, LocalShare, -0.6519},
      {Before, Before, -0.0401},
      {Sustain, Sustain, -0.5104},
      {TwoOctavesAbove, TwoOctavesAbove, 0.8433},
      {Fifths, Fifths, 0.9139},
      {SecondPartial, SecondPartial, -0.5192},
      {Mean, MeanShare, -0.9444},
      {Mean, Duration, 0.1361},
      {Mean, Flux, 0.5924},
      {Mean, Covered, 0.5663},
      {Mean, Pitch, 0.6757},
      {Mean, Fundamental, -1.3956},
      {MeanShare, OctaveBelow, -0.5560},
      {MeanShare, TwelfthBelow, -0.7665},
      {MeanShare, FarBelow, 0.5184},
      {Flux, Covered, -0.4221},
      {OctaveBelow, Pitch, 1.2889},
  }};
  return kTerms;
}

std::span<const Term<NoteFeature>> companyTerms() {
  using enum NoteFeature;
  static constexpr std::array<Term<NoteFeature>, 99> kTerms{{
      {One, One, -4.1503},
      {One, Peak, -0.2165},
      {One, PeakShare, -0.4558},
      {One, Mean, 0.2266},
      {One, MeanShare, 4.7592},
      {One, Duration, 0.1707},
      {One, Flux, -0.0736},
      {One, OctaveBelow, 2.3465},
      {One, TwelfthBelow, 0.0687},
      {One, TwoOctavesBelow, 0.7706},
      {One, FarBelow, -3.8266},
      {One, OctaveAbove, 3.7253},
      {One, TwelfthAbove, 4.5256},
      {One, Beside, -3.8582},
      {One, Polyphony, 1.5541},
      {One, Covered, 0.0443},
      {One, Pitch, 1.3921},
      {One, Reattack, -0.5097},
      {One, Decay, 5.8298},
      {One, Share, -0.9708},
      {One, Fundamental, -7.3907},
      {One, FundamentalToEven, 0.7874},
      {One, ThirdToEven, 0.3535},
      {One, OddToEven, 0.2723},
      {One, OddFlux, -0.2535},
      {One, FundamentalFlux, -0.9008},
      {One, LocalShare, -0.0084},
      {One, Before, -0.6629},
      {One, Sustain, 2.2596},
      {One, TwoOctavesAbove, 0.7473},
      {One, Fifths, -1.6679},
      {One, SecondPartial, -0.6524},
      {One, Odds, -1.2009},
      {One, LikelyOctaveBelow, 1.2113},
      {One, LikelyOctaveAbove, 2.6658},
      {One, LikelyFarBelow, 0.3072},
      {One, LikelyFarAbove, 0.8789},
      {One, LikelyPolyphony, 0.1050},
      {One, LoudestCompany, 0.6385},
      {One, LikelyChord, 0.4643},
      {One, Texture, 1.4192},
      {One, LikelyBefore, 2.1072},
      {One, LikelyBeside, -3.0802},
      {One, StrengthAbove, -0.6997},
      {One, StrengthBelow, -0.5036},
      {One, LikelyLouder, 0.8068},
      {Peak, Peak, 1.2403},
      {PeakShare, PeakShare, -1.4772},
      {Mean, Mean, -0.7957},
      {MeanShare, MeanShare, 2.2334},
      {Duration, Duration, -0.4851},
      {Flux, Flux, 0.0551},
      {OctaveBelow, OctaveBelow, 0.6821},
      {TwelfthBelow, TwelfthBelow, 0.6127},
      {TwoOctavesBelow, TwoOctavesBelow, 0.9010},
      {FarBelow, FarBelow, 1.5271},
      {OctaveAbove, OctaveAbove, 0.6881},
      {TwelfthAbove, TwelfthAbove, -2.7512},
      {Beside, Beside, 0.9891},
      {Polyphony, Polyphony, -0.6471},
      {Pitch, Pitch, -4.7285},
      {Decay, Decay, -1.4728},
      {Share, Share, -0.3224},
      {Fundamental, Fundamental, -2.4061},
      {FundamentalToEven, FundamentalToEven, -0.0856},
      {ThirdToEven, ThirdToEven, 0.0771},
      {OddToEven, OddToEven, -0.8805},
      {OddFlux, OddFlux, 0.0937},
      {FundamentalFlux, FundamentalFlux, -0.2313},
      {LocalShare, LocalShare, -1.3886},
      {Before, Before, -0.0958},
      {Sustain, Sustain, -0.8722},
      {TwoOctavesAbove, TwoOctavesAbove, 1.4304},
      {Fifths, Fifths, 1.9791},
      {SecondPartial, SecondPartial, -1.1363},
      {LikelyOctaveBelow, LikelyOctaveBelow, -0.6351},
      {LikelyOctaveAbove, LikelyOctaveAbove, -2.0626},
      {LikelyFarBelow, LikelyFarBelow, -0.6459},
      {LikelyFarAbove, LikelyFarAbove, -1.8737},
      {LikelyPolyphony, LikelyPolyphony, 0.0206},
      {LoudestCompany, LoudestCompany, 0.2368},
      {LikelyChord, LikelyChord, -0.0610},
      {Texture, Texture, -0.1748},
      {LikelyBefore, LikelyBefore, -1.6485},
      {LikelyBeside, LikelyBeside, 3.8484},
      {StrengthAbove, StrengthAbove, -0.1108},
      {StrengthBelow, StrengthBelow, -0.0871},
      {LikelyLouder, LikelyLouder, -0.1676},
      {Mean, MeanShare, -2.1131},
      {Mean, Duration, 0.0314},
      {Mean, Flux, 1.2925},
      {Mean, Covered, 1.2672},
      {Mean, Pitch, 1.2544},
      {Mean, Fundamental, -2.7332},
      {MeanShare, OctaveBelow, -1.4640},
      {MeanShare, TwelfthBelow, -1.8267},
      {MeanShare, FarBelow, 2.1535},
      {Flux, Covered, -0.7471},
      {OctaveBelow, Pitch, 2.7462},
  }};
  return kTerms;
}

std::span<const Range> rangesOf(NoteFeature) {
  static constexpr std::array<Range, 46> kRanges{{
      {1.0000, 1.0000},    // One
      {-1.2029, 0.9227},   // Peak
      {-2.1130, -0.0003},  // PeakShare
      {-1.6972, 0.8320},   // Mean
      {-2.2202, 0.0010},   // MeanShare
      {-2.8465, 1.4020},   // Duration
      {0.0307, 9.2451},    // Flux
      {0.0000, 2.1046},    // OctaveBelow
      {0.0000, 2.0305},    // TwelfthBelow
      {0.0000, 1.8942},    // TwoOctavesBelow
      {0.0000, 2.0016},    // FarBelow
      {0.0000, 1.8763},    // OctaveAbove
      {0.0000, 1.8730},    // TwelfthAbove
      {0.0000, 2.2185},    // Beside
      {0.0010, 3.3322},    // Polyphony
      {0.0000, 1.0000},    // Covered
      {-1.0000, 1.4500},   // Pitch
      {0.0000, 1.0000},    // Reattack
      {-0.8079, 0.3999},   // Decay
      {-4.1533, -0.4209},  // Share
      {-2.2858, 1.2027},   // Fundamental
      {-1.9650, 1.6914},   // FundamentalToEven
      {-1.7016, 1.4198},   // ThirdToEven
      {-1.3850, 1.0909},   // OddToEven
      {-1.6646, 2.0442},   // OddFlux
      {-3.9120, 0.7852},   // FundamentalFlux
      {-2.1916, -0.0005},  // LocalShare
      {-4.2574, 0.3112},   // Before
      {-1.5127, 0.0469},   // Sustain
      {0.0000, 1.5835},    // TwoOctavesAbove
      {0.0000, 2.2580},    // Fifths
      {-1.9628, 1.2245},   // SecondPartial
      {-9.2103, 5.0754},   // Odds
      {0.0000, 0.9925},    // LikelyOctaveBelow
      {0.0000, 0.9828},    // LikelyOctaveAbove
      {0.0000, 0.9930},    // LikelyFarBelow
      {0.0000, 0.9761},    // LikelyFarAbove
      {0.0000, 6.2153},    // LikelyPolyphony
      {-3.7504, 2.0959},   // LoudestCompany
      {0.0000, 5.3052},    // LikelyChord
      {1.0000, 4.9155},    // Texture
      {0.0000, 0.9908},    // LikelyBefore
      {0.0000, 0.9865},    // LikelyBeside
      {-3.9053, 1.7519},   // StrengthAbove
      {-3.9153, 1.8025},   // StrengthBelow
      {0.0000, 6.1480},    // LikelyLouder
  }};
  return kRanges;
}

}  // namespace korvel::precise
