// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBTuning.h"

#include "analysis/spectrum/QBFrequency.h"
#include "model/instruments/QBString.h"

namespace korvel {

QBString* QBTuning::findBaseToneByFrequency(const QBFrequency& frequency) {
  const int count = static_cast<int>(allTones().size());
  for (int position = 0; position < count; ++position)
    if (isBaseTone(position, frequency.frequency())) return findStringByPosition(position);
  return nullptr;
}

}  // namespace korvel
