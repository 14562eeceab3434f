// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/QBTabFilter.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "tab/text/NoChords.h"

namespace korvel {
namespace {

QBTone* activeToneLike(const QBChord& chord, const QBTone& tone) {
  const QBHold* hold = chord.hold();
  if (!hold) return nullptr;
  for (QBTone* other : hold->tones())
    if (other->isActive() && other->equals(tone)) return other;
  return nullptr;
}

}  // namespace

QBTabFilter::QBTabFilter(QBSong* source, QBSong* target)
    : m_source(source), m_target(target), m_chords(target->allChords()) {}

QBTabFilter::~QBTabFilter() = default;

QBSong* QBTabFilter::filter() {
  if (m_chords.empty()) throw NoChords();
  mergeTones();
  foldEmptyChords();
  return m_target;
}

void QBTabFilter::mergeTones() {
  for (std::size_t i = 0; i + 1 < m_chords.size(); ++i) {
    QBChord& chord = *m_chords[i];
    for (const auto& tone : tonesOf(chord)) {
      if (!tone->isActive()) continue;
      const int duration = 1 + eliminateTones(chord.timestamp(), i + 1, *tone);
      tone->setDuration(duration);
      chord.setDurationValue(duration);
    }
  }
}

int QBTabFilter::eliminateTones(std::int64_t, std::size_t start, const QBTone& tone) {
  double amp = tone.amp();
  int removed = 0;
  for (std::size_t i = start; i < m_chords.size(); ++i, ++removed) {
    const platform::Ref<QBTone> next = activeToneLike(*m_chords[i], tone);
    if (!next || amp <= next->amp()) break;
    amp = next->amp();
    next->setActive(false);
    m_chords[i]->hold()->deleteTone(next);
  }
  return removed;
}

void QBTabFilter::foldEmptyChords() {
  for (std::size_t i = 0; i + 1 < m_chords.size();) {
    const std::size_t sounding = i++;
    if (isEmpty(sounding)) continue;
    int duration = m_chords[sounding]->duration();
    for (; i < m_chords.size() && isEmpty(i); ++i) ++duration;
    m_chords[sounding]->setDuration(duration);
  }
}

bool QBTabFilter::isEmpty(std::size_t index) const {
  const QBHold* hold = m_chords[index]->hold();
  return !hold || hold->isEmpty();
}

}  // namespace korvel
