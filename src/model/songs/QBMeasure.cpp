// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBMeasure.h"

#include <algorithm>
#include <stdexcept>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr int kEighths = 8;

using Chords = std::vector<platform::Ref<QBChord>>;

struct Run {
  int added = 0;
  bool divisible = false;
};

/// Adds up durations from index on until the sum is a whole number of units, at most `longest`
/// chords. A run without such a sum counts one more than it has: the drawing expects that.
Run runOf(const Chords& chords, int index, int longest, int unit) {
  const int end = std::min(index + longest, static_cast<int>(chords.size()));
  int sum = 0;
  for (int i = index; i < end; ++i) {
    sum += chords.at(static_cast<std::size_t>(i))->duration();
    if (sum % unit == 0) return {i - index + 1, true};
  }
  return {std::max(end - index, 0) + 1, false};
}

}  // namespace

platform::EntityDescription QBMeasure::describe() {
  return platform::EntityBuilder<QBMeasure>("QBMeasure")
      .attribute<&QBMeasure::m_position>("position")
      .attribute<&QBMeasure::m_beat>("beat")
      .attribute<&QBMeasure::m_beattype>("beattype")
      .toOne<&QBMeasure::m_song>("song", "QBSong", "measures")
      .toMany<&QBMeasure::m_chords>("chords", "QBChord", "measure")
      .build();
}

QBSong* QBMeasure::song() const { return target(m_song); }

void QBMeasure::setSong(QBSong* value) { relate(m_song, value); }

platform::Members<QBChord> QBMeasure::chords() const { return members(m_chords); }

Chords QBMeasure::allChords() const {
  Chords sorted = chords().snapshot();
  std::ranges::stable_sort(sorted, {}, [](const auto& chord) { return chord->position(); });
  return sorted;
}

int QBMeasure::durationValue() const {
  int sum = 0;
  for (const QBChord* chord : chords()) sum += chord->duration();
  return sum;
}

bool QBMeasure::fitsIn(int duration) const {
  if (beattype() == 0) throw std::domain_error("a measure without a beat type has no length");
  return durationValue() + duration <= beat() * (kSixteenthsOfWhole / beattype());
}

void QBMeasure::addChord(QBChord* chord) { chord->setMeasure(this); }

int QBMeasure::lookupGroupSize(int index) const {
  return beattype() == kEighths ? lookupGroupSizeAchtel(index) : lookupGroupSizeViertel(index);
}

int QBMeasure::lookupGroupSizeAchtel(int index) const {
  const Run run = runOf(allChords(), index, 3, 3);
  return run.added == 2 && !run.divisible ? 1 : run.added;
}

int QBMeasure::lookupGroupSizeViertel(int index) const {
  const Run run = runOf(allChords(), index, 4, 4);
  return run.added == 3 && !run.divisible ? 2 : run.added;
}

}  // namespace korvel
