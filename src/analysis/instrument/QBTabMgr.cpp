// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/QBTabMgr.h"

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBSpectrum.h"
#include "music/Neck.h"

namespace korvel {
namespace {}  // namespace

void QBTabMgr::computeOffsets() {
  QBInstrument* instrument = selectedInstrument();
  if (!instrument) return;
  for (int string = 0; string < kStrings; ++string)
    instrument->findSpectrumByString(string)->computeOffsets();
}

}  // namespace korvel
