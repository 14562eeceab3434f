// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBGroup.h"

#include <algorithm>

#include "model/QBChord.h"

namespace korvel {

QBGroup::QBGroup(int number) : m_counter(number) {}

QBGroup::~QBGroup() = default;

void QBGroup::addChord(QBChord* chord) {
  const auto isChord = [&](const auto& member) { return member.get() == chord; };
  if (std::ranges::none_of(m_members, isChord)) m_members.emplace_back(chord);
}

}  // namespace korvel
