// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongOrders.h"

#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/arranging/QBSongMenu.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

constexpr std::string_view kDelete = "deleteSong";
constexpr std::string_view kExport = "exportAsFile";  // changes no song

void requireChords(const QBSong& song, const SongCommand& command) {
  if (song.chords().empty() && command.command != kDelete)
    throw EditRefused(
        platform::phrase("Message", "%1: the song has no chords, so \"%2\" has nothing to do"),
        song.title(), command.title);
}

/// Nobody has to fear for what the log says is done.
class SavedWhenLogged {
 public:
  explicit SavedWhenLogged(QBSession& session)
      : m_session(session), m_before(session.savesAtOnce()) {
    m_session.setSavesAtOnce(true);
  }
  SavedWhenLogged(const SavedWhenLogged&) = delete;
  SavedWhenLogged& operator=(const SavedWhenLogged&) = delete;
  ~SavedWhenLogged() { m_session.setSavesAtOnce(m_before); }

 private:
  QBSession& m_session;
  const bool m_before;
};

/// Views would go on showing, playing and editing a song that is nowhere any more.
void leaveDeleted(QBSession& session) {
  if (session.activeSong() && session.activeSong()->isDeleted()) session.setActiveSong(nullptr);
}

template <class Order>
auto ordered(const QBSongNode& node, const SongCommand& command, const Order& order) {
  const platform::Ref<QBSong> keep(node.song());
  QBSong& song = *keep;
  QBTabMgr& db = QBTabMgr::of(song);
  QBSession& session = node.session();
  requireChords(song, command);
  if (command.command != kExport) Edit::requireWritable(db);
  if (command.command == kDelete) SongInWork::requireDeletable(song);
  const SavedWhenLogged saved(session);
  const auto answer = order();
  db.save();
  leaveDeleted(session);
  return answer;
}

}  // namespace

bool orderOf(QBSongNode& node, const SongCommand& command, Manner manner) {
  return ordered(node, command, [&] { return node.perform(command, manner); });
}

void orderByMenu(QBSongMenu& menu, const SongCommand& command) {
  if (const auto node = menu.session().activeSongNode())
    orderOf(*node, command);
  else
    menu.perform(command.action);
}

}  // namespace korvel
