// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace korvel::fingering {

/// A chord shape, the lowest string first; without an open string its lowest fret is 1.
struct SeenShape {
  std::string_view frets;
  int times = 0;
};

/// How often four players took a shape for three notes or more: made from the annotations of
/// GuitarSet (Q. Xi, R. Bittner, J. Pauwels, X. Ye, J. P. Bello, CC BY 4.0).
inline constexpr std::array kSeenShapes{
    SeenShape{"000xxx", 2},  SeenShape{"002210", 1},  SeenShape{"0022xx", 1},
    SeenShape{"00x2xx", 1},  SeenShape{"01xx00", 1},  SeenShape{"0201xx", 3},
    SeenShape{"020xxx", 9},  SeenShape{"022100", 1},  SeenShape{"0221xx", 6},
    SeenShape{"022xxx", 2},  SeenShape{"02x1xx", 2},  SeenShape{"03x0xx", 2},
    SeenShape{"040xxx", 3},  SeenShape{"044xxx", 1},  SeenShape{"046xxx", 1},
    SeenShape{"0657xx", 1},  SeenShape{"0x21xx", 1},  SeenShape{"100xxx", 1},
    SeenShape{"121xxx", 1},  SeenShape{"1221xx", 1},  SeenShape{"13121x", 2},
    SeenShape{"1312xx", 3},  SeenShape{"131xxx", 5},  SeenShape{"1320xx", 2},
    SeenShape{"132xxx", 5},  SeenShape{"13320x", 4},  SeenShape{"13321x", 4},
    SeenShape{"1332x0", 1},  SeenShape{"1332xx", 5},  SeenShape{"133xxx", 48},
    SeenShape{"13x0xx", 2},  SeenShape{"1x111x", 3},  SeenShape{"1x11xx", 1},
    SeenShape{"1x221x", 7},  SeenShape{"241xxx", 1},  SeenShape{"32003x", 9},
    SeenShape{"3200xx", 7},  SeenShape{"320xxx", 3},  SeenShape{"3551xx", 1},
    SeenShape{"42003x", 1},  SeenShape{"42x0xx", 1},  SeenShape{"46xx0x", 1},
    SeenShape{"x0000x", 4},  SeenShape{"x000xx", 2},  SeenShape{"x0202x", 1},
    SeenShape{"x020xx", 2},  SeenShape{"x0221x", 2},  SeenShape{"x022xx", 3},
    SeenShape{"x0x00x", 1},  SeenShape{"x0x21x", 1},  SeenShape{"x100xx", 1},
    SeenShape{"x1312x", 3},  SeenShape{"x131xx", 7},  SeenShape{"x1323x", 6},
    SeenShape{"x1331x", 1},  SeenShape{"x1333x", 9},  SeenShape{"x133xx", 46},
    SeenShape{"x13x3x", 1},  SeenShape{"x13xx1", 1},  SeenShape{"x13xx3", 1},
    SeenShape{"x1x11x", 1},  SeenShape{"x1x31x", 1},  SeenShape{"x2003x", 3},
    SeenShape{"x200xx", 3},  SeenShape{"x201xx", 1},  SeenShape{"x211xx", 4},
    SeenShape{"x2122x", 6},  SeenShape{"x213xx", 3},  SeenShape{"x214xx", 9},
    SeenShape{"x221xx", 11}, SeenShape{"x3121x", 1},  SeenShape{"x3201x", 9},
    SeenShape{"x320xx", 6},  SeenShape{"x32x1x", 1},  SeenShape{"x331xx", 1},
    SeenShape{"x3321x", 7},  SeenShape{"x3x01x", 1},  SeenShape{"x3x211", 1},
    SeenShape{"xx000x", 8},  SeenShape{"xx001x", 1},  SeenShape{"xx003x", 1},
    SeenShape{"xx100x", 1},  SeenShape{"xx1111", 3},  SeenShape{"xx1113", 1},
    SeenShape{"xx111x", 21}, SeenShape{"xx1222", 4},  SeenShape{"xx122x", 6},
    SeenShape{"xx1231", 4},  SeenShape{"xx123x", 11}, SeenShape{"xx200x", 1},
    SeenShape{"xx2010", 1},  SeenShape{"xx201x", 3},  SeenShape{"xx2020", 1},
    SeenShape{"xx202x", 2},  SeenShape{"xx212x", 5},  SeenShape{"xx221x", 5},
    SeenShape{"xx312x", 3},  SeenShape{"xx3211", 1},  SeenShape{"xx321x", 14},
    SeenShape{"xx403x", 3},  SeenShape{"xxx000", 1},  SeenShape{"xxx003", 3},
    SeenShape{"xxx010", 4},  SeenShape{"xxx030", 2},  SeenShape{"xxx111", 2},
    SeenShape{"xxx121", 2},  SeenShape{"xxx122", 2},  SeenShape{"xxx210", 2},
    SeenShape{"xxx211", 9},  SeenShape{"xxx213", 1},  SeenShape{"xxx231", 1},
    SeenShape{"xxx400", 1},  SeenShape{"xxx401", 1},  SeenShape{"xxx413", 1},
};

}  // namespace korvel::fingering
