// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/TakeHearing.h"

#include <utility>

#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "recording/hearing/Hearing.h"
#include "tab/text/SongDrawing.h"
#include "workflow/hearing/KeptRecording.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {
namespace {

constexpr int kCheapChordsOfStep = 100;

}  // namespace

TakeHearing::TakeHearing(const NewSong& live, QBTuning* tuning)
    : m_album(live.album()),
      m_song(m_album->createSong(QBNameMgr(m_album, live.song()->title()).newName())) {
  m_song->setTuning(tuning);
}

TakeHearing::~TakeHearing() {
  if (!m_song) return;
  if (m_hearing) m_hearing->end();
  m_album->deleteSong(m_song);
}

void TakeHearing::begin(std::unique_ptr<Hearing> hearing) {
  m_hearing = std::move(hearing);
  m_hearing->begin();
}

void TakeHearing::step() {
  const int most = m_hearing->hasCheapChords() ? kCheapChordsOfStep : 1;
  for (int taken = 0; taken < most && m_hearing->next(); ++taken) continue;
}

void TakeHearing::takePlace(NewSong& live, const std::filesystem::path& take) {
  if (!hasTones(*m_song)) return;
  if (const HeardSound* heard = m_hearing->heard())
    keepingRecording(QBTabMgr::of(*m_song), *m_song, take.string(), *heard).finish();
  m_hearing->end();
  m_song->setTitle(live.song()->title());
  buildTab(*m_song);
  live.keep();
  m_album->deleteSong(live.song());
  m_inPlace = std::exchange(m_song, nullptr);
}

double TakeHearing::progress() const { return m_hearing->progress(); }

bool TakeHearing::atEnd() const { return m_hearing->atEnd(); }

}  // namespace korvel
