// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/chords/QBChordExtractor.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {

QBChordExtractor::QBChordExtractor(int from, int to, QBSong* target)
    : m_from(from), m_to(to), m_target(target) {}

QBChordExtractor::~QBChordExtractor() = default;

void QBChordExtractor::execute(QBChord*, QBChord* current, QBChord*) {
  if (current->position() >= m_from && current->position() <= m_to) current->clone(m_target);
}

}  // namespace korvel
