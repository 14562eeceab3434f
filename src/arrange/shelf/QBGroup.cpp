// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroup.h"

#include "model/songs/QBChord.h"

namespace korvel {

QBGroup::QBGroup(int number) : m_counter(number) {}

QBGroup::~QBGroup() = default;

void QBGroup::addChord(QBChord* chord) {
  if (m_known.insert(chord).second) m_members.emplace_back(chord);
}

}  // namespace korvel
