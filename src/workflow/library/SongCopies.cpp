// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/SongCopies.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/Edit.h"

namespace korvel {

using platform::phrase;

QBSong& cloneSong(QBSong& song) {
  Edit edit(song, phrase("UndoAction", "Clone"));
  const auto album = AlbumNode::withSongs(song.album());
  album->findChild(&song)->copySong();
  QBSong& copy = *album->children().back()->song();
  keepTimes(song, copy);
  edit.save();
  return copy;
}

QBSong& mergeSongs(QBSong& song, QBSong& other) {
  Edit edit(song, phrase("UndoAction", "Merge Songs"));
  QBSong& merged = *mergeWithSong(song, other);
  edit.save();
  return merged;
}

QBSong& extractPart(QBSong& song, int from, int to) {
  Edit edit(song, phrase("UndoAction", "Extract Part"));
  QBSong& part = *extractPartOfSong(song, from, to);
  edit.save();
  return part;
}

}  // namespace korvel
