// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBTabMgr;

/// Fills an empty store with settings, tunings, harmonies, the default instrument and the hand
/// patterns, and saves it. Answers whether it was saved.
bool initializeData(QBTabMgr& db);

}  // namespace korvel
