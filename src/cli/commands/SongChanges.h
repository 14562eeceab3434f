// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::cli {

// Changes of songs and new songs of others. Each saves, prints the title of the song that it made
// or changed as ALBUM/TITLE, and throws CliError when it cannot;
// StoreError when it cannot be saved.

/// Chords are named by their position, counted from 1; the ends may be given in either order.
void setLoop(const std::string& song, int from, int to);
void clearLoop(const std::string& song);
void cloneSong(const std::string& song);
/// The title must be free in the song's album.
void renameSong(const std::string& song, const std::string& title);
/// Makes the album when there is none. The title gets "_2" where it is taken.
void moveSong(const std::string& song, const std::string& album);
void mergeSongs(const std::string& song, const std::string& other);
void extractPart(const std::string& song, int from, int to);

}  // namespace korvel::cli
