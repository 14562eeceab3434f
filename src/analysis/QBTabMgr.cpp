// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/QBTabMgr.h"

#include "model/Neck.h"
#include "model/QBInstrument.h"
#include "model/QBSpectrum.h"

namespace korvel {
namespace {}  // namespace

void QBTabMgr::computeOffsets() {
  QBInstrument* instrument = selectedInstrument();
  if (!instrument) return;
  for (int string = 0; string < kStrings; ++string)
    instrument->findSpectrumByString(string)->computeOffsets();
}

}  // namespace korvel
