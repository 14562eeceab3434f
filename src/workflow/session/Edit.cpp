// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/Edit.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/SongDrawing.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {

Edit::Edit(QBTabMgr& db, QBSong* song, const platform::Phrase& title)
    : m_db(db),
      m_session(QBSession::session()),
      m_song(song),
      m_group(m_db.context().undoManager(), title) {
  requireWritable(m_db);
}

Edit::Edit(const platform::Phrase& title) : Edit(QBTabMgr::db(), nullptr, title) {}

Edit::Edit(QBSong& song, const platform::Phrase& title) : Edit(QBTabMgr::of(song), &song, title) {}

void Edit::requireWritable(const QBTabMgr& db) {
  if (db.context().isReadOnly())
    throw EditRefused(
        platform::phrase("Message",
                         "%1: the store cannot be written, so nothing can be changed; look at the "
                         "permissions of the store and its folder"),
        db.context().store().file());
}

Edit::~Edit() {
  if (m_done) return;
  try {
    rollBack();
  } catch (const std::exception& exception) {
    m_session.handleException("edit", exception);
  }
}

/// The lists of the store do not follow by themselves; an edit of a song does not change them.
void Edit::rollBack() {
  if (m_group.rollBack() && !m_song) m_db.reloadData();
}

void Edit::joinAlike() {
  if (m_song) m_group.joinAbout(*m_song);
}

void Edit::redraw() {
  if (m_song && !m_song->chords().empty()) buildTab(*m_song);
}

void Edit::save() {
  m_db.save();
  m_done = true;
}

void Edit::done(const platform::UserText& line) {
  save();
  m_session.addToLog(line);
  m_session.refreshTree();
}

}  // namespace korvel
