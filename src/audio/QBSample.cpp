// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSample.h"

namespace korvel {

bool QBSample::equals(const QBSample& other) const { return value() == other.value(); }

}  // namespace korvel
