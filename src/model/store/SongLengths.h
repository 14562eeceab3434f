// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>

namespace korvel {

class QBTabMgr;

/// How many chords each song has, by the id of the song: as it was saved, and counted by the store,
/// so that no chord has to be read for it. Songs without chords are left out. Throws StoreError.
std::map<std::int64_t, std::int64_t> chordCounts(const QBTabMgr& db);

}  // namespace korvel
