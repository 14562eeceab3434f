// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/SongBars.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "arrange/harmony/WrittenName.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

constexpr int kQuarters = 4;
/// No chord is drawn longer, whatever a store says.
constexpr int kMostTicks = 64 * kTicksOfBeat;

int lengthOfChord(const QBChord& chord, bool compound) {
  const int ticks = chord.ticks() > 0 ? chord.ticks()
                                      : std::max(chord.duration(), 1) * ticksOfSixteenth(compound);
  return std::min(ticks, kMostTicks);
}

bool isOnNeck(const QBTone& tone) {
  return tone.isActive() && tone.string() >= 0 && tone.string() < kStrings;
}

int ticksOfEvents(const SongBars::Bar& bar) {
  int sum = 0;
  for (const auto& event : bar.events) sum += event.ticks;
  return sum;
}

/// Leaves names where they change. A chord that is struck without one ends the span before.
class NameSpans {
 public:
  std::string of(const QBChord& chord, bool isStruck) {
    std::string name = writtenName(chord);
    if (name.empty() && !isStruck) return {};
    if (name == m_name) return {};
    m_name = name;
    return name;
  }

 private:
  std::string m_name;
};

/// What sounds on each string, along a song.
class RingingStrings {
 public:
  explicit RingingStrings(std::vector<SongBars::Ring>& rings) : m_rings(rings) {
    m_last.fill(kNone);
  }

  /// Of two tones of a chord on one string the longer one sounds.
  void strike(const QBTone& tone, SongBars::Event& event) {
    event.frets.push_back({tone.string(), tone.fret()});
    const int ticks = tone.ticks() > 0 ? std::min(tone.ticks(), kMostTicks) : event.ticks;
    const int end = event.from + ticks;
    SongBars::Ring* before = ringOf(tone.string());
    if (before && before->from == event.from) {
      before->end = std::max(before->end, end);
      return;
    }
    if (before) before->end = std::min(before->end, event.from);
    m_last[static_cast<std::size_t>(tone.string())] = static_cast<int>(m_rings.size());
    m_rings.push_back({event.chord, tone.string(), event.from, end, false});
  }

  /// Whether tones of before sound on in an event, the tones of which are struck.
  bool goOn(const SongBars::Event& event) {
    bool any = false;
    for (int string = 0; string < kStrings; ++string) {
      SongBars::Ring* ring = ringOf(string);
      if (!ring || ring->from == event.from || ring->end <= event.from) continue;
      any = true;
      if (!event.frets.empty()) ring->isUnderOthers = true;
    }
    return any;
  }

 private:
  static constexpr int kNone = -1;

  SongBars::Ring* ringOf(int string) {
    const int last = m_last[static_cast<std::size_t>(string)];
    return last == kNone ? nullptr : &m_rings[static_cast<std::size_t>(last)];
  }

  std::vector<SongBars::Ring>& m_rings;
  std::array<int, kStrings> m_last;  ///< Index of the ring.
};

}  // namespace

std::vector<BarSign> SongBars::Bar::signs() const {
  std::vector<BarEvent> written;
  for (const Event& event : events) written.push_back({event.ticks, event.kind});
  return signsOf(written, beat, beattype, first);
}

SongBars::SongBars(QBSong& song) {
  readBars(song);
  readTones(song);
  countBars();
}

/// A chord that is in no bar goes on the one before.
void SongBars::readBars(QBSong& song) {
  const QBMeasure* current = nullptr;
  int tick = 0;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    const QBMeasure* measure = chord->measure();
    if (m_bars.empty() || (measure && measure != current)) {
      current = measure;
      m_bars.push_back({0,
                        measure ? measure->beat() : kQuarters,
                        measure ? measure->beattype() : kQuarters,
                        false,
                        0,
                        {}});
    }
    Bar& bar = m_bars.back();
    const int ticks = lengthOfChord(*chord, isCompound(bar.beat, bar.beattype));
    bar.events.push_back({index++, tick, ticks, BarEvent::Kind::rest, {}, {}});
    tick += ticks;
  }
}

void SongBars::readTones(QBSong& song) {
  RingingStrings strings(m_rings);
  NameSpans names;
  for (Bar& bar : m_bars) {
    for (Event& event : bar.events) {
      const QBChord& chord = *song.allChords()[static_cast<std::size_t>(event.chord)];
      for (const auto& tone : byStringAndFret(chord))
        if (isOnNeck(*tone)) strings.strike(*tone, event);
      const bool isStruck = !event.frets.empty();
      const bool goesOn = strings.goOn(event);
      event.kind = isStruck ? BarEvent::Kind::struck
                   : goesOn ? BarEvent::Kind::held
                            : BarEvent::Kind::rest;
      event.name = names.of(chord, isStruck);
    }
  }
}

void SongBars::countBars() {
  int number = 0;
  for (Bar& bar : m_bars) {
    const Bar* before = &bar == &m_bars.front() ? nullptr : &bar - 1;
    const int missing = ticksOfBar(bar.beat, bar.beattype) - ticksOfEvents(bar);
    const bool isPickUp = !before && m_bars.size() > 1 && missing > 0;
    bar.first = isPickUp ? missing : 0;
    bar.number = isPickUp ? 0 : ++number;
    bar.showsTime = !before || before->beat != bar.beat || before->beattype != bar.beattype;
  }
}

}  // namespace korvel
