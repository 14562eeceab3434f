// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {
class QBTuning;
}

namespace korvel::cli {

/// Makes a tuning the active one until the end of the scope, since detection and drawing follow
/// the active one; without a tuning nothing changes.
class TuningForNow {
 public:
  explicit TuningForNow(QBTuning* tuning);
  TuningForNow(const TuningForNow&) = delete;
  TuningForNow& operator=(const TuningForNow&) = delete;
  ~TuningForNow();

 private:
  platform::Ref<QBTuning> m_before;
};

}  // namespace korvel::cli
