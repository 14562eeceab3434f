// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::cli {

// One function for each command; they print their answer and throw CliError when they cannot.

/// Every song as ALBUM/TITLE, one a line.
void listSongs();
void showSong(const std::string& song);
void dumpSong(const std::string& song);
void deleteSong(const std::string& song);
/// The tunings, the active one marked with a star.
void listTunings();
/// A complete check of the store.
void checkStore();
/// Copies the store to a new file.
void backupStore(const std::string& file);

}  // namespace korvel::cli
