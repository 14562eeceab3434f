// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/MeasureLayout.h"

#include <algorithm>
#include <vector>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/ChordStep.h"

namespace korvel {
namespace {

int roomOf(const QBMeasure& measure) {
  return measure.beattype() > 0 ? measure.beat() * (kSixteenthsOfWhole / measure.beattype()) : 0;
}

bool takesPart(const QBChord& chord) {
  return chord.measure() || (chord.hold() && !chord.hold()->isEmpty());
}

class Layout {
 public:
  Layout(QBTabMgr& db, QBSong& song) : m_db(db), m_song(song), m_measures(song.allMeasures()) {}

  void run(int firstChanged) {
    if (m_measures.empty()) return;
    const auto& chords = m_song.allChords();
    for (std::size_t at = begin(firstChanged); at < chords.size(); ++at)
      if (takesPart(*chords[at])) place(*chords[at]);
    dropRest();
  }

 private:
  /// The first chord of the measure in which chords change, which becomes the current one.
  std::size_t begin(int firstChanged) {
    const auto& chords = m_song.allChords();
    auto at = std::min(static_cast<std::size_t>(firstChanged), chords.size());
    while (at > 0 && !chords[at - 1]->measure()) --at;
    if (at == 0) return 0;
    const QBMeasure* measure = chords[at - 1]->measure();
    const auto found = std::ranges::find(m_measures, measure);
    if (found == m_measures.end()) return 0;  // of another song, in an odd store
    m_current = static_cast<std::size_t>(found - m_measures.begin());
    const auto isOfMeasure = [&](const auto& chord) { return chord->measure() == measure; };
    return static_cast<std::size_t>(std::ranges::find_if(chords, isOfMeasure) - chords.begin());
  }

  void place(QBChord& chord) {
    if (m_filled > 0 && m_filled + chord.duration() > roomOf(*m_measures[m_current])) next();
    m_measures[m_current]->addChord(&chord);
    m_filled += chord.duration();
    m_used = m_current + 1;
  }

  void next() {
    m_filled = 0;
    if (++m_current < m_measures.size()) return;
    const QBMeasure& last = *m_measures.back();
    const int position = last.position() + 1;
    QBMeasure* added = m_db.createMeasure(&m_song, last.beat(), last.beattype());
    added->setPosition(position);
    m_measures.emplace_back(added);
  }

  /// One stays, so that a song without chords keeps its metre.
  void dropRest() {
    for (; m_measures.size() > std::max<std::size_t>(m_used, 1); m_measures.pop_back()) {
      m_measures.back()->setSong(nullptr);
      m_db.deleteInstance(m_measures.back());
    }
  }

  QBTabMgr& m_db;
  QBSong& m_song;
  std::vector<platform::Ref<QBMeasure>> m_measures;
  std::size_t m_current = 0;
  std::size_t m_used = 0;
  int m_filled = 0;
};

}  // namespace

void layIntoMeasures(QBTabMgr& db, QBSong& song, int firstChanged) {
  Layout(db, song).run(firstChanged);
}

}  // namespace korvel
