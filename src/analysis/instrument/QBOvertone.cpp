// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBOvertone.h"

namespace korvel {

bool QBOvertone::equals(int otherString, int otherFret) const {
  return string() == otherString && fret() == otherFret;
}

int QBOvertone::increaseHits() {
  setHits(hits() + 1);
  return hits();
}

}  // namespace korvel
