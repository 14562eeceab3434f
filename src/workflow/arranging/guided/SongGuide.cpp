// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/SongGuide.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "tab/layout/TabLayout.h"
#include "tab/text/TabText.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

/// Everything is as it was before when the scope ends.
class Trial {
 public:
  Trial(platform::UndoManager& manager, const platform::Phrase& title) : m_group(manager, title) {}
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial() {
    try {
      m_group.rollBack();
    } catch (const std::exception& problem) {
      QBSession::session().handleException("preview", problem);
    }
  }

 private:
  platform::UndoGroup m_group;
};

}  // namespace

QBSong* SongGuide::made(QBSong& song) const {
  if (song.chords().empty())
    throw EditRefused(
        platform::phrase("Message", "%1: the song has no chords, so \"%2\" has nothing to do"),
        song.title(), m_title);
  return m_make(song);
}

std::string SongGuide::preview(QBSong& song) const {
  const Trial trial(QBTabMgr::db().context().undoManager(), m_title);
  QBSong& tried = *made(song);
  return firstLineOf(tried, 0, static_cast<int>(tried.allChords().size()) - 1);
}

QBSong& SongGuide::accept(QBSong& song) const {
  Edit edit(song, m_title);
  QBSong& accepted = *made(song);
  edit.done(m_line);
  edit.session().setActiveSong(&accepted);
  return accepted;
}

std::string firstLineOf(QBSong& song, int first, int last) {
  const TabLayout layout = TabLayout::forExport(song);
  const auto begin = std::ranges::find_if(layout.places(), [&](const TabLayout::Place& place) {
    return place.chord >= first && place.chord <= last;
  });
  const TabLayout::System* system =
      begin == layout.places().end() ? nullptr : layout.systemAt(begin->y);
  if (!system) return "";
  const int end = std::prev(layout.end(*system))->chord;
  return textOfChords(layout, first, std::min(last, end));
}

}  // namespace korvel
