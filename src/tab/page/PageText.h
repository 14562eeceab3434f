// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tab/page/SongPage.h"

namespace korvel {

/// A page as text, lines ended: its head, grips as boxes, and bars with the words below them.
std::string pageText(const SongPage& page);

}  // namespace korvel
