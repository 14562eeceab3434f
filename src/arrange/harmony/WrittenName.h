// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBChord;
class QBSong;
struct ChordName;

/// The name of a chord as it is written in the key of its song, where that has one: "Bbm7". ""
/// without a harmony.
std::string writtenName(const QBChord& chord);
/// The same of a name that a chord of the song may have.
std::string writtenName(const ChordName& name, const QBSong* song);

}  // namespace korvel
