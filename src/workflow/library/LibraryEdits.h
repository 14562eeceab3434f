// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/text/UserText.h"

namespace korvel {

class Calibration;
class QBAlbum;
class QBInstrument;
class QBSong;

// What a user does to albums, songs and instruments as a whole. Each edit is an undoable
// action, saves the store, logs a line, has the tree drawn anew, and throws EditRefused when it is
// not possible, StoreError when it cannot be saved; nothing has changed then.

/// Under that name, or a free one like it.
QBAlbum* newAlbum(const std::string& name);
void renameAlbum(QBAlbum& album, const std::string& name);
/// The copy gets a free name.
QBAlbum* cloneAlbum(QBAlbum& album);
/// With all its songs.
void deleteAlbum(QBAlbum& album);

void renameSong(QBSong& song, const std::string& title);
/// Gets another title when the album has one like it.
void moveSong(QBSong& song, QBAlbum& album);
/// To the album of that name, which is made when there is none.
void moveSong(QBSong& song, const std::string& album);
/// Refused for a song that is being recorded.
void deleteSong(QBSong& song);
/// The deletion alone, for a command that is the edit around it.
void takeOutOfAlbum(QBSong& song);
/// What is logged of it.
inline constexpr platform::Phrase kSongDeleted =
    platform::phrase("Log", "Song was successfully deleted.");

/// The instrument that confirms tones from now on.
void selectInstrument(QBInstrument& instrument);
/// From a definition file, with the offsets that it has; it becomes the selected one. A file that
/// is not whole is refused, and strings that it has nothing about are logged.
QBInstrument* importInstrument(const std::string& file);
/// As it was measured on single notes; it becomes the selected one.
QBInstrument* addInstrument(const std::string& name, const Calibration& measured);
/// Its definition file, complete: what was measured is there when it is read again.
std::string definitionOf(QBInstrument& instrument);
void renameInstrument(QBInstrument& instrument, const std::string& name);
/// Not the last one, without which no tone could be confirmed.
void deleteInstrument(QBInstrument& instrument);

/// The folder that files are written to; made when missing. Throws FileError or StoreError.
void setWorkDirectory(const std::string& folder);

}  // namespace korvel
