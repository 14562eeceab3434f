// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/ChordTicks.h"

namespace korvel {

// ---- removing

void BeatBars::remove(std::size_t first, std::size_t last) {
  for (std::size_t end = last + 1; end > first;) {
    const std::size_t bar = beginOfBar(end - 1);
    const std::size_t begin = std::max(first, bar);
    if (begin == bar && end == endOfBar(end - 1))
      eraseBar(begin, end);
    else
      removeInBar(begin, end - 1);
    end = begin;
  }
}

/// What comes behind a gap does not follow the beats before it any more.
void BeatBars::eraseBar(std::size_t first, std::size_t end) {
  const platform::Ref<QBMeasure> measure(at(first).measure());
  for (std::size_t chord = end; chord > first; --chord) erase(chord - 1);
  if (first > 0)
    for (std::size_t chord = first; chord < m_chords.size(); ++chord)
      if (at(chord).hasBeatTime()) at(chord).clearBeatTime();
  if (m_song.measures().size() == 1) return;
  measure->setSong(nullptr);
  m_db.deleteInstance(measure);
}

void BeatBars::removeInBar(std::size_t first, std::size_t last) {
  for (std::size_t chord = last + 1; chord-- > first;) {
    if (chord == beginOfBar(chord)) {
      removeFirstOfBar(chord);
      continue;
    }
    QBChord& before = at(chord - 1);
    changeTicks(before, at(chord).ticks());
    before.setEdited(true);
    erase(chord);
  }
}

void BeatBars::removeFirstOfBar(std::size_t chord) {
  QBChord& first = at(chord);
  if (!isFollowedInBar(chord)) return;
  if (isToneless(first) && !isToneless(at(chord + 1))) {
    QBChord& next = at(chord + 1);
    changeTicks(next, first.ticks());
    if (first.hasBeatTime()) next.setBeatTime(first.beatTime());
    next.setTimestamp(first.timestamp());
    next.setEdited(true);
    return erase(chord);
  }
  if (!isToneless(first))
    for (const auto& tone : first.hold()->tones().snapshot()) first.hold()->deleteTone(tone);
  first.setHarmony(nullptr);
  first.clearBaseTone();
  first.setPattern(nullptr);
  first.setLeftpattern(nullptr);
  first.setEdited(true);
  if (!isRestBehind(chord)) return;
  first.setTicks(first.ticks() + at(chord + 1).ticks());
  erase(chord + 1);
}

// ---- moving

std::optional<std::size_t> BeatBars::move(std::size_t chord, int ticks) {
  if (!hasRoom(chord, ticks)) return {};
  at(chord).setEdited(true);
  if (ticks > 0)
    moveLater(chord, ticks);
  else
    moveEarlier(chord, -ticks);
  return chord;
}

bool BeatBars::hasRoom(std::size_t chord, int ticks) const {
  if (ticks > 0)
    return at(chord).ticks() > ticks || (isRestBehind(chord) && at(chord + 1).ticks() >= ticks);
  if (chord == beginOfBar(chord)) return false;
  const QBChord& before = at(chord - 1);
  return before.ticks() > -ticks || (before.ticks() == -ticks && isToneless(before));
}

void BeatBars::moveLater(std::size_t& chord, int ticks) {
  const platform::Ref<QBChord> moved(m_chords[chord]);
  const Time begin = timeAt(chord, 0);
  const double samples = ticks * samplesOfTick(chord);
  const bool givesRest = isRestBehind(chord) && at(chord + 1).ticks() >= ticks;
  const int run = runOf(chord);
  if (givesRest)
    takeFrom(chord + 1, ticks);
  else
    changeTicks(*moved, -ticks);
  moveInTime(*moved, samples);
  if (chord > beginOfBar(chord)) {
    changeTicks(at(chord - 1), ticks);
  } else {
    insert(chord, moved->measure(), ticks, begin);
    ++chord;
  }
  if (isToneless(*moved)) return;
  for (QBTone* tone : moved->hold()->tones())
    if (const int own = ticksOfTone(*tone, *moved); own <= run)
      tone->setTicks(std::min(own, runOf(chord)));
}

void BeatBars::moveEarlier(std::size_t& chord, int ticks) {
  QBChord& moved = at(chord);
  const double samples = ticks * samplesOfTick(chord - 1);
  if (isRestBehind(chord)) {
    QBChord& behind = at(chord + 1);
    moveInTime(behind, -ticks * samplesOfTick(chord));
    behind.setTicks(behind.ticks() + ticks);
  } else {
    changeTicks(moved, ticks);
  }
  moveInTime(moved, -samples);
  if (at(chord - 1).ticks() > ticks)
    changeTicks(at(chord - 1), -ticks);
  else
    erase(--chord);
}

}  // namespace korvel
