// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/SongLengths.h"

#include "model/store/QBTabMgr.h"
#include "platform/sqlite/Sqlite.h"

namespace korvel {

std::map<std::int64_t, std::int64_t> chordCounts(const QBTabMgr& db) {
  std::map<std::int64_t, std::int64_t> counts;
  auto rows = db.context().store().prepare(
      "SELECT song, count(*) FROM QBChord WHERE song IS NOT NULL GROUP BY song");
  while (rows.step()) counts[rows.integer(0)] = rows.integer(1);
  return counts;
}

}  // namespace korvel
