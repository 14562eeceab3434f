// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/UserText.h"
#include "workflow/exchange/TrackNotes.h"

namespace korvel {

/// "grace notes (3), slides (2)"; in the user's language as far as the words are known here.
platform::UserText textOfLeft(const LeftOut& left);

}  // namespace korvel
