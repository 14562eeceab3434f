// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/bars/KeptBeats.h"

#include <algorithm>
#include <vector>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "workflow/arranging/bars/FilledBars.h"

namespace korvel {
namespace {

using ChordList = std::vector<platform::Ref<QBChord>>;

bool isSameMoment(const QBChord& a, const QBChord& b) {
  if (a.timestamp() != b.timestamp() || a.hasBeatTime() != b.hasBeatTime()) return false;
  return !a.hasBeatTime() || a.beatTime() == b.beatTime();
}

/// For each chord of the source what was made of it.
class DerivedChords {
 public:
  DerivedChords(const ChordList& source, const ChordList& made)
      : m_source(source), m_of(source.size()) {
    std::size_t last = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < made.size(); ++i) {
      const std::size_t found = source.size() == made.size() ? i : sourceOf(*made[i], next);
      if (found < source.size()) {
        last = found;
        next = found + 1;
      }
      m_of[last].push_back(made[i]);
    }
  }

  const ChordList& of(std::size_t index) const { return m_of[index]; }

 private:
  /// Of chords of one moment, as those have that were entered by hand, the one of its position.
  std::size_t sourceOf(const QBChord& made, std::size_t from) const {
    const auto at = static_cast<std::size_t>(std::max(made.position() - 1, 0));
    if (at >= from && at < m_source.size() && isSameMoment(*m_source[at], made)) return at;
    while (from < m_source.size() && !isSameMoment(*m_source[from], made)) ++from;
    return from;
  }

  const ChordList& m_source;
  std::vector<ChordList> m_of;
};

const QBTone* modelOf(const QBTone& tone, const Tones& models) {
  const auto isSamePlace = [&](const auto& other) { return other->equals(tone); };
  const auto sounds = [&](const auto& other) { return largeToneOf(*other) == largeToneOf(tone); };
  auto found = std::ranges::find_if(models, isSamePlace);
  if (found == models.end()) found = std::ranges::find_if(models, sounds);
  if (found == models.end()) found = models.begin();
  return found == models.end() ? nullptr : found->get();
}

void keepLengths(const QBChord& source, const QBChord& made) {
  const Tones models = loudestFirst(source);
  for (const auto& tone : tonesOf(made)) {
    if (tone->hasTicks()) continue;
    const QBTone* model = modelOf(*tone, models);
    const bool isTimed = model && model->hasTicks();
    tone->setTicks(isTimed ? model->ticks() : source.ticks());
    tone->setDuration(isTimed ? model->duration() : source.duration());
  }
}

/// A chord that was made anew is struck when the source's is.
void keepMoment(const QBChord& source, QBChord& made) {
  if (made.hasTicks()) return;
  made.setTimestamp(source.timestamp());
  if (source.hasBeatTime()) made.setBeatTime(source.beatTime());
}

class BeatKeeper {
 public:
  BeatKeeper(QBSong& source, QBSong& made)
      : m_made(made),
        m_time(source, SongTime::Tempo::strict),
        m_bars(barsOf(source)),
        m_chords(source.allChords()),
        m_derived(m_chords, made.allChords()) {}

  void run() {
    for (std::size_t i = 0; i < m_chords.size(); ++i) {
      if (!m_derived.of(i).empty())
        keep(i);
      else if (tonesOf(*m_chords[i]).empty())
        m_placed.push_back({m_chords[i]->clone(&m_made), m_time.tickOf(i)});
      else
        ringOver(i);
    }
    fillBars(m_made, m_placed, m_bars);
    endTonesAtNextStrike(m_made);
  }

 private:
  struct Ringing {
    platform::Ref<QBTone> tone;
    int begin;
    int end;
  };

  int lengthOf(std::size_t index) const { return m_time.tickOf(index + 1) - m_time.tickOf(index); }

  void keep(std::size_t index) {
    const ChordList& derived = m_derived.of(index);
    const auto count = static_cast<int>(derived.size());
    for (int part = 0; part < count; ++part) {
      QBChord& chord = *derived[static_cast<std::size_t>(part)];
      const int tick = m_time.tickOf(index) + lengthOf(index) * part / count;
      if (part == 0) keepMoment(*m_chords[index], chord);
      keepLengths(*m_chords[index], chord);
      m_placed.push_back({platform::Ref<QBChord>(&chord), tick});
      for (const auto& tone : tonesOf(chord))
        m_ringing.push_back({tone, tick, tick + tone->ticks()});
    }
  }

  /// What rang until the missing chord rings on.
  void ringOver(std::size_t index) {
    const int tick = m_time.tickOf(index);
    std::erase_if(m_ringing, [tick](const Ringing& each) { return each.end < tick; });
    for (Ringing& each : m_ringing) {
      if (each.end != tick) continue;
      each.end += lengthOf(index);
      each.tone->setTicks(each.end - each.begin);
      each.tone->setDuration(each.tone->duration() + m_chords[index]->duration());
    }
  }

  QBSong& m_made;
  const SongTime m_time;
  const std::vector<BarSpan> m_bars;
  const ChordList m_chords;
  const DerivedChords m_derived;
  std::vector<PlacedChord> m_placed;
  std::vector<Ringing> m_ringing;
};

}  // namespace

void keepBeats(QBSong& source, QBSong& made) {
  if (source.allChords().empty() || made.allChords().empty()) return;
  if (!made.isOnBeats()) made.takeRhythmOf(source);
  BeatKeeper(source, made).run();
}

}  // namespace korvel
