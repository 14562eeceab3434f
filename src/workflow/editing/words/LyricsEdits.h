// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/songs/SongLyrics.h"

namespace korvel {

class QBSong;

// Edits of the words that are sung to a song: each an undoable action, saved when it returns, which
// throws EditRefused when the store cannot be written and StoreError when it cannot be saved;
// nothing has changed then.

/// The song has these words and no others.
void changeLyrics(QBSong& song, std::vector<SungWords> words);

/// The words of a typed or pasted text, as `readLyrics` (tab/page/LyricsText.h) places them below
/// the bars; throws NoPlaceForWords.
void typeLyrics(QBSong& song, std::string_view text);

/// What is sung from one tick until another, as the bars of a page tell them, is this text, from
/// its beginning on. Those edits that follow one another are one action.
void changeWords(QBSong& song, int from, int to, const std::string& text);

}  // namespace korvel
