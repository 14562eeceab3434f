// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/SongGuide.h"

#include <algorithm>
#include <map>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "tab/layout/TabLayout.h"
#include "tab/text/TabText.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

/// Of a song that is tried: it need not be made as a whole, however long it is.
constexpr std::size_t kChordsTried = 256;

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

bool isHeard(const platform::Ref<QBChord>& chord) {
  return chord->hold() && !chord->hold()->isEmpty();
}

/// Enough chords for a line, in their bars, from the first that sounds on; a song that has no more
/// is its own beginning.
QBSong& beginningOf(QBSong& song) {
  const auto& chords = song.allChords();
  if (chords.size() <= kChordsTried) return song;
  QBSong* beginning = emptyBeside(song, song.title());
  std::map<const QBMeasure*, QBMeasure*> bars;
  auto chord = std::ranges::find_if(chords, isHeard);
  if (song.isOnBeats())
    while (chord != chords.begin() && chord != chords.end() &&
           (*chord)->measure() == (*std::prev(chord))->measure())
      --chord;
  for (std::size_t i = 0; i < kChordsTried && chord != chords.end(); ++i, ++chord) {
    QBChord* copy = (*chord)->clone(beginning);
    const QBMeasure* bar = (*chord)->measure();
    if (!bar) continue;
    QBMeasure*& known = bars[bar];
    if (!known) known = QBTabMgr::db().createMeasure(beginning, bar->beat(), bar->beattype());
    known->setPosition(bar->position());
    known->addChord(copy);
  }
  return *beginning;
}

std::string lineOf(QBSong& song) {
  return firstLineOf(song, 0, static_cast<int>(song.allChords().size()) - 1);
}

}  // namespace

void SongGuide::requireChords(const QBSong& song) const {
  if (song.chords().empty())
    throw EditRefused(
        platform::phrase("Message", "%1: the song has no chords, so \"%2\" has nothing to do"),
        song.title(), m_title);
}

std::string SongGuide::preview(QBSong& song) const {
  requireChords(song);
  const Trial trial(QBTabMgr::db().context().undoManager(), m_title);
  try {
    return lineOf(*m_make(beginningOf(song), song));
  } catch (const EditRefused&) {
    return lineOf(*m_make(song, song));  // what it needs may come later
  }
}

QBSong& SongGuide::accept(QBSong& song) const {
  requireChords(song);
  Edit edit(song, m_title);
  QBSong& accepted = *m_make(song, song);
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
