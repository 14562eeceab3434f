// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;
class QBTabMgr;

/// The first song of the library that was heard in a recording with the content of that file,
/// whatever its name; none when there is none. Reads the file only when one of its size is known.
QBSong* songHeardIn(const QBTabMgr& db, const std::string& file);

/// Whether there may be one, by the size of the file.
bool mayBeHeardIn(const QBTabMgr& db, const std::string& file);

}  // namespace korvel
