// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/QBTuning.h"

#include "analysis/QBFrequency.h"
#include "model/QBString.h"

namespace korvel {

QBString* QBTuning::findBaseToneByFrequency(const QBFrequency& frequency) {
  const int count = static_cast<int>(allTones().size());
  for (int position = 0; position < count; ++position)
    if (isBaseTone(position, frequency.frequency())) return findStringByPosition(position);
  return nullptr;
}

}  // namespace korvel
