// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBHarmony.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "model/book/QBToneOfHarmony.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// How many notes a set of pitch classes has. Processors that programs are built for by default
/// count no bits by themselves.
constexpr auto kCountOf = [] {
  std::array<std::int8_t, 1U << kNotesPerOctave> counts{};
  for (std::size_t set = 1; set < counts.size(); ++set)
    counts[set] = static_cast<std::int8_t>(counts[set / 2] + static_cast<int>(set % 2));
  return counts;
}();

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

const std::vector<unsigned>& QBHarmony::intervals() {
  if (m_intervals) return *m_intervals;
  m_intervals.emplace();
  int note = 0;
  for (const auto& tone : allTones()) {
    note = above(note, *tone);
    const unsigned bit = 1U << note;
    const auto without = [bit](unsigned set) { return (set & bit) == 0; };
    const auto set = std::ranges::find_if(*m_intervals, without);
    if (set == m_intervals->end())
      m_intervals->push_back(bit);
    else
      *set |= bit;
  }
  return *m_intervals;
}

int QBHarmony::countTones(int base, unsigned pitchClasses) {
  const int root = pitchClass(base);
  const unsigned fromRoot = pitchClasses >> root | pitchClasses << (kNotesPerOctave - root);
  int count = 0;
  for (const unsigned set : intervals()) count += kCountOf[set & fromRoot];
  return count;
}

bool QBHarmony::includesNote(int base, int note) {
  return note == pitchClass(note) && countTones(base, 1U << note) > 0;
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
