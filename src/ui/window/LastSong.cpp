// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/LastSong.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

QString rememberedAs(const QBAlbum& album, const QBSong& song) {
  return toText(album.name() + '/' + song.title());
}

}  // namespace

void rememberLastSong(const QBSong* song) {
  const QBAlbum* album = song ? song->album() : nullptr;
  Preferences().setLastSong(album ? rememberedAs(*album, *song) : QString());
}

QBSong* lastSong() {
  const QString last = Preferences().lastSong();
  for (const auto& album : QBTabMgr::db().albums())
    if (last.startsWith(toText(album->name()) + '/'))
      for (QBSong* song : album->songs())
        if (rememberedAs(*album, *song) == last) return song;
  return nullptr;
}

}  // namespace korvel::ui
