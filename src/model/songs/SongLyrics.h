// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

class QBSong;

/// Words of a song and where they begin: in a song on beats, or in bars, by ticks from the first
/// bar line, else by the index of a chord in `allChords`. They belong to a place and not to a
/// chord, so that they stay when that changes.
struct SungWords {
  int tick = 0;
  std::string text;  ///< One line, without blanks around; never empty.

  bool operator==(const SungWords&) const = default;
};

/// By tick. What was stored and cannot be read is left out.
std::vector<SungWords> lyricsOf(const QBSong& song);
/// In any order; those at one tick are joined, and blank ones left out. None takes all away.
void setLyrics(QBSong& song, std::vector<SungWords> words);

}  // namespace korvel
