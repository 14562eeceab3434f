// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/SongInWork.h"

#include <algorithm>
#include <vector>

#include "model/songs/QBSong.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

std::vector<const SongInWork*>& all() {
  static std::vector<const SongInWork*> marks;
  return marks;
}

}  // namespace

SongInWork::SongInWork(QBSong* song, Filler filler) : m_song(song), m_filler(filler) {
  all().push_back(this);
}

SongInWork::~SongInWork() { std::erase(all(), this); }

const SongInWork* SongInWork::of(const QBSong& song) {
  const auto mark =
      std::ranges::find_if(all(), [&](const SongInWork* each) { return each->m_song == &song; });
  return mark == all().end() ? nullptr : *mark;
}

void SongInWork::requireDeletable(const QBSong& song) {
  const SongInWork* mark = of(song);
  if (mark && mark->m_filler == Filler::recording)
    throw EditRefused(
        platform::phrase("Message", "%1: is being recorded; stop the recording, then delete it"),
        song.title());
}

}  // namespace korvel
