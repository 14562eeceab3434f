// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/fingering/FingeringCosts.h"

#include <algorithm>

namespace korvel::precise {
namespace {

FingeringCosts around(int fret) {
  FingeringCosts costs;
  costs.home = std::max(1, fret);
  costs.homeSlack = 1;
  costs.perFretFromHome = 0.5F;
  return costs;
}

}  // namespace

FingeringCosts FingeringCosts::openPosition() {
  FingeringCosts costs;
  costs.home = 1;
  costs.perFretFromHome = 0.3F;
  return costs;
}

FingeringCosts FingeringCosts::of(const FingeringOptions& options) {
  switch (options.position.kind) {
    case Position::Kind::open:
      return openPosition();
    case Position::Kind::around:
      return around(options.position.fret - options.capo);
    case Position::Kind::anywhere:
      break;
  }
  return {};
}

}  // namespace korvel::precise
