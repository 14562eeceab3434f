// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/QBHarmony.h"

#include <algorithm>
#include <iterator>

#include "model/Pitch.h"
#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBTabMgr.h"
#include "model/QBToneOfHarmony.h"
#include "model/QBTuning.h"

namespace korvel {
namespace {

/// The step is reduced first: a declared one may be as large as an int can be.
int above(int note, const QBToneOfHarmony& tone) {
  return pitchClass(note + pitchClass(tone.step()));
}

}  // namespace

void QBHarmony::addStep(int order, int step) {
  QBTabMgr::db().createToneOfHarmony(this, order, step);
}

const std::vector<platform::Ref<QBToneOfHarmony>>& QBHarmony::allTones() {
  if (!m_sortedTones) {
    m_sortedTones = tones().snapshot();
    std::ranges::stable_sort(*m_sortedTones, {}, [](const auto& tone) { return tone->order(); });
  }
  return *m_sortedTones;
}

int QBHarmony::isPartOfChord(int base, const QBChord& chord) {
  const QBHold* hold = chord.hold();
  return hold ? countTones(base, hold->pitchClasses()) : 0;
}

const std::vector<int>& QBHarmony::intervals() {
  if (!m_intervals) {
    m_intervals.emplace();
    int note = 0;
    for (const auto& tone : allTones()) m_intervals->push_back(note = above(note, *tone));
  }
  return *m_intervals;
}

int QBHarmony::countTones(int base, unsigned pitchClasses) {
  const int root = pitchClass(base);
  const unsigned fromRoot = pitchClasses >> root | pitchClasses << (kNotesPerOctave - root);
  return static_cast<int>(std::ranges::count_if(
      intervals(), [fromRoot](int interval) { return (fromRoot >> interval & 1U) != 0; }));
}

bool QBHarmony::includesNote(int base, int note) {
  return std::ranges::any_of(intervals(), [root = pitchClass(base), note](int interval) {
    return pitchClass(root + interval) == note;
  });
}

std::optional<std::string> QBHarmony::noteAsString(int note) {
  static constexpr const char* kNames[] = {"C",  "C#", "D",  "Eb", "E",  "F",
                                           "F#", "G",  "Ab", "A",  "Bb", "B"};
  if (note < 0 || note >= static_cast<int>(std::size(kNames))) return std::nullopt;
  return kNames[note];
}

int QBHarmony::toneOfString(int string) {
  QBTuning* tuning = QBTabMgr::db().selectedTuning();
  return tuning ? tuning->noteOfString(string) : 0;
}

}  // namespace korvel
