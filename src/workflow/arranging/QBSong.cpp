// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include <algorithm>

#include "arrange/chords/QBChordVisitor.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

constexpr std::int64_t kTimestampOfMadeChords = 2;

}  // namespace

// ---- order and lookup

const std::vector<platform::Ref<QBChord>>& QBSong::allChords() {
  if (!m_sortedChords) {
    m_sortedChords = chords().snapshot();
    std::ranges::stable_sort(*m_sortedChords, {},
                             [](const auto& chord) { return chord->position(); });
  }
  return *m_sortedChords;
}

std::vector<platform::Ref<QBMeasure>> QBSong::allMeasures() const {
  auto sorted = measures().snapshot();
  std::ranges::stable_sort(sorted, {}, [](const auto& measure) { return measure->position(); });
  return sorted;
}

std::vector<platform::Ref<QBChord>> QBSong::chordsInRange(int from, int to) {
  const auto& all = allChords();
  const int end = std::min(to, static_cast<int>(all.size()));
  const int begin = std::max(from, 0);
  if (end <= begin) return {};
  return {all.begin() + begin, all.begin() + end};
}

QBChord* QBSong::createChord() {
  return QBTabMgr::db().createChord(this, nullptr, kTimestampOfMadeChords);
}

void QBSong::deleteChord(QBChord* chord) {
  chord->setSong(nullptr);
  QBTabMgr::db().deleteChord(chord);
}

void QBSong::setChordInLoop(QBChord* chord) {
  const QBChord* from = fromChord();
  const QBChord* to = toChord();
  const int position = chord->position();
  if (!from || position <= from->position())
    setFromChord(chord);
  else if (!to || position >= to->position())
    setToChord(chord);
  else if (position - from->position() >= to->position() - position)
    setToChord(chord);  // a tie moves the end of the loop
  else
    setFromChord(chord);
}

int QBSong::lookupGroupSize(int index) {
  const auto& all = allChords();
  const auto durationAt = [&](int i) { return all.at(static_cast<std::size_t>(i))->duration(); };
  int equals = 0;
  while (index + equals < static_cast<int>(all.size()) - 1 &&
         durationAt(index + equals + 1) == durationAt(index + equals)) {
    if (++equals == 3) return 4;
  }
  // Three equal durations make a group of two, by design.
  return equals == 2 ? 2 : equals + 1;
}

void QBSong::iterate(QBChordVisitor& visitor) {
  visitor.setM_album(album());
  const auto& all = allChords();
  for (std::size_t i = 0; i < all.size(); ++i) {
    visitor.setM_index(static_cast<int>(i));
    visitor.execute(i > 0 ? all[i - 1].get() : nullptr, all[i],
                    i + 1 < all.size() ? all[i + 1].get() : nullptr);
  }
}

void QBSong::buildTab() { setTabulature(toString()); }

}  // namespace korvel
