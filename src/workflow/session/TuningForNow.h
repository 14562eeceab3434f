// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBTuning;

/// Lets a tuning stand in for the active one until the end of the scope, since detection, notes and
/// drawing follow the active one; without a tuning nothing changes. Nothing of it is stored. Scopes
/// may lie within each other, as a job's step does in a dialog of a command.
class TuningForNow {
 public:
  explicit TuningForNow(QBTuning* tuning);
  TuningForNow(const TuningForNow&) = delete;
  TuningForNow& operator=(const TuningForNow&) = delete;
  ~TuningForNow();

 private:
  platform::Ref<QBTuning> m_before;
};

}  // namespace korvel
