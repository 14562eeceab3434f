// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBChordFilter.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {

QBChordFilter::QBChordFilter(QBSong* source) : m_source(source) {}

QBChordFilter::~QBChordFilter() = default;

QBSong* QBChordFilter::m_song() const { return m_target; }

void QBChordFilter::setM_song(QBSong* song) { m_target = song; }

QBSong* QBChordFilter::filter() {
  const auto chords = m_source->allChords();
  for (auto first = chords.begin(); first != chords.end();) {
    (*first)->clone(m_target);
    first = std::find_if(first + 1, chords.end(),
                         [&](const auto& next) { return !next->equals(**first); });
  }
  return m_target;
}

}  // namespace korvel
