// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tab/page/PageSource.h"

namespace korvel {

class QBSong;
class QBTabMgr;

/// Where a song of chords comes and what it is called, in place of what its file says.
struct ChordSongChoices {
  std::optional<std::string> album{};
  std::optional<std::string> title{};
};

/// Fills an empty song with chords in bars: each is struck where it begins and on each bar line
/// that it lasts beyond, in the grip that the file defines, or one that guitarists know near the
/// one before. The song gets tempo, key, capo, artist and words, too.
void fillWithChords(QBSong& song, const PageSource& chords);

/// How names of ChordPro files end, in small letters and without the dot. What ends in "pro" is
/// mostly something else.
std::span<const std::string_view> endingsOfChordPro();

/// Whether a file is a ChordPro one, by the end of its name and by its text. False for what cannot
/// be read.
bool isChordProFile(const std::string& file);

/// Makes a song of a ChordPro file, as an undoable action, saves and logs it; in the album that is
/// named, or in that of its artist, or else in one of its own. fileName: names a song without a
/// title. Throws a UserError that names the file when it holds no chords.
QBSong& songOfChordPro(QBTabMgr& db, std::string_view text, const std::string& fileName,
                       const ChordSongChoices& choices = {});

}  // namespace korvel
