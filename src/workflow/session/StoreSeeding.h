// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBTabMgr;

/// Opens the shared store, which is made when there is none, and fills one without settings. Throws
/// StoreUnavailable.
void prepareStore();

/// Fills a store with what it lacks of settings, the two tunings, harmonies, the default instrument
/// and the hand patterns, and saves it. What is there stays as it is. Throws StoreError.
void initializeData(QBTabMgr& db);

}  // namespace korvel
