// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/shelf/BaseTone.h"

#include "analysis/spectrum/QBFrequency.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"

namespace korvel {

QBString* findBaseToneByFrequency(QBTuning& tuning, const QBFrequency& frequency) {
  const int count = static_cast<int>(tuning.allTones().size());
  for (int position = 0; position < count; ++position)
    if (tuning.isBaseTone(position, frequency.frequency()))
      return tuning.findStringByPosition(position);
  return nullptr;
}

}  // namespace korvel
