// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBHarmony.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "model/book/QBToneOfHarmony.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

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

platform::EntityDescription QBHarmony::describe() {
  return platform::EntityBuilder<QBHarmony>("QBHarmony")
      .root()
      .attribute<&QBHarmony::m_type>("type")
      .attribute<&QBHarmony::m_order>("order")
      .toMany<&QBHarmony::m_tones>("tones", "QBToneOfHarmony", "harmony",
                                   platform::Loading::allOwners)
      .toMany<&QBHarmony::m_chords>("chords", "QBChord", "harmony")
      .build();
}

QBHarmony::QBHarmony() = default;

QBHarmony::~QBHarmony() = default;

platform::Members<QBToneOfHarmony> QBHarmony::tones() const { return members(m_tones); }

platform::Members<QBChord> QBHarmony::chords() const { return members(m_chords); }

void QBHarmony::forgetCaches() {
  m_sortedTones.reset();
  m_intervals.reset();
}

void QBHarmony::addStep(int order, int step) {
  QBTabMgr::of(*this).createToneOfHarmony(this, order, step);
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
  if (note != pitchClass(note)) return std::nullopt;
  return std::string(nameOfPitchClass(note));
}

int QBHarmony::toneOfString(int string) {
  QBTuning* tuning = QBTabMgr::db().selectedTuning();
  return tuning ? tuning->noteOfString(string) : 0;
}

}  // namespace korvel
