// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBAlbum;
class QBChord;
class QBSong;
}  // namespace korvel

namespace korvel::cli {

class Command;

/// "ALBUM/TITLE".
std::string fullTitle(const QBSong& song);
/// As the line that tells which song a command made or changed.
void printTitle(const QBSong& song);

/// The song of that title, or of that ALBUM/TITLE; where several have the same, "#2" behind it
/// means the second. Throws CliError, which lists the candidates, when there is none or more than
/// one.
QBSong& chooseSong(const std::string& name);

/// Throws CliError when the song has none.
void requireChords(QBSong& song);
/// The chord at a position, counted from 1. Throws CliError, which tells those that there are.
QBChord* chordAt(QBSong& song, int position);

/// Throws CliError, which lists the albums, when there is none of that name.
QBAlbum& chooseAlbum(const std::string& name);

/// Has a command take a song by its name.
void addSong(Command& command, std::string& song);
/// The same for a command that is about stored songs alone: without a store it fails.
void needStoredSong(Command& command, std::string& song);

}  // namespace korvel::cli
