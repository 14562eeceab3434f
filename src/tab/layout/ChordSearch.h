// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

class QBChord;
class QBSong;

/// The chord's name as it sounds, which the tablature shows; "" for a chord that has none or is
/// silent.
std::string shownName(const QBChord& chord);

enum class SearchDirection { forward, backward };

/// Index of the next chord of that name after `from`, or before it, round the ends of the song; the
/// one at `from` comes last. Behind a capo the name of its shape is as good as that of what sounds.
/// When no chord has exactly this name, those match whose names begin with it, upper and lower case
/// alike: "am" finds an Am7. None for an empty name.
std::optional<int> findChord(QBSong& song, std::string_view name, int from,
                             SearchDirection direction);

}  // namespace korvel
