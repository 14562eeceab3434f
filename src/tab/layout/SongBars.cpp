// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/SongBars.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "tab/layout/CapoNames.h"

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
  explicit NameSpans(int capo) : m_capo(capo) {}

  std::string of(const QBChord& chord, bool isStruck) {
    std::string name = capoNameOf(chord, m_capo).text();
    if (name.empty() && !isStruck) return {};
    if (name == m_name) return {};
    m_name = name;
    return name;
  }

 private:
  int m_capo;
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

/// What a second voice holds.
struct Held {
  int from;
  int end;
};

bool isStruckAbove(const SongBars::Event& event, int string) {
  return std::ranges::all_of(event.frets,
                             [string](const auto& fret) { return fret.string > string; });
}

/// Whether all that is struck while a tone rings lies above it.
bool isBelowOthers(const SongBars::Ring& ring, const std::vector<const SongBars::Event*>& events) {
  if (!ring.isUnderOthers) return false;
  auto event = std::ranges::upper_bound(events, ring.from, {}, &SongBars::Event::from);
  for (; event != events.end() && (*event)->from < ring.end; ++event)
    if (!isStruckAbove(**event, ring.string)) return false;
  return true;
}

/// Whether a lower tone sounds already, or begins with it and does not end with it.
bool isAboveOther(const SongBars::Ring& ring, const std::vector<SongBars::Ring>& rings,
                  std::size_t index) {
  constexpr std::size_t kFarthest = 64;  // what was struck before so many others is over
  const std::size_t first = index > kFarthest ? index - kFarthest : 0;
  const std::size_t last = std::min(index + kStrings, rings.size());
  return std::any_of(rings.begin() + static_cast<std::ptrdiff_t>(first),
                     rings.begin() + static_cast<std::ptrdiff_t>(last), [&](const auto& other) {
                       const bool sounds = other.from <= ring.from && other.end > ring.from;
                       const bool isSame = other.from == ring.from && other.end == ring.end;
                       return sounds && !isSame && other.string < ring.string;
                     });
}

/// Each until the next one, as a voice has them.
std::vector<Held> heldBelow(const std::vector<SongBars::Ring>& rings,
                            const std::vector<SongBars::Bar>& bars) {
  std::vector<const SongBars::Event*> events;
  for (const SongBars::Bar& bar : bars)
    for (const SongBars::Event& event : bar.events) events.push_back(&event);
  std::vector<Held> held;
  for (std::size_t i = 0; i < rings.size(); ++i) {
    const SongBars::Ring& ring = rings[i];
    if (!isBelowOthers(ring, events) || isAboveOther(ring, rings, i)) continue;
    if (!held.empty() && held.back().from == ring.from) continue;
    if (!held.empty()) held.back().end = std::min(held.back().end, ring.from);
    held.push_back({ring.from, ring.end});
  }
  return held;
}

std::vector<BarEvent> lowerOf(const SongBars::Bar& bar, const std::vector<Held>& held) {
  std::vector<BarEvent> lower;
  int at = bar.events.front().from;
  const int end = bar.events.back().from + bar.events.back().ticks;
  const auto add = [&](int to, BarEvent::Kind kind) {
    if (to > at) lower.push_back({to - at, kind});
    at = std::max(at, to);
  };
  auto next = std::ranges::upper_bound(held, at, {}, &Held::end);
  for (; next != held.end() && next->from < end; ++next) {
    add(next->from, BarEvent::Kind::rest);
    add(std::min(next->end, end), next->from < at ? BarEvent::Kind::held : BarEvent::Kind::struck);
  }
  if (!lower.empty()) add(end, BarEvent::Kind::rest);
  return lower;
}

}  // namespace

std::vector<BarSign> SongBars::Bar::lowerSigns() const {
  std::vector<BarSign> signs = signsOf(lower, beat, beattype, first);
  std::erase_if(signs, [](const BarSign& sign) { return sign.isRest; });
  return signs;
}

std::vector<BarSign> SongBars::Bar::signs() const {
  std::vector<BarEvent> written;
  for (const Event& event : events) written.push_back({event.ticks, event.kind});
  return signsOf(written, beat, beattype, first);
}

SongBars::SongBars(QBSong& song) {
  readBars(song);
  readTones(song);
  readLower();
  countBars();
}

/// A chord that is in no bar goes on the one before. Among slices it is a silent one, and takes no
/// time: what sounds before it has lasted so much longer.
void SongBars::readBars(QBSong& song) {
  const auto measures = song.allMeasures();
  const bool isOfSlices = !song.isOnBeats() && !measures.empty();
  const QBMeasure* current = nullptr;
  int tick = 0;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    const QBMeasure* measure = chord->measure();
    const bool isBeside = isOfSlices && !measure;
    if (isBeside && m_bars.empty()) measure = measures.front().get();
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
    const int ticks = isBeside ? 0 : lengthOfChord(*chord, isCompound(bar.beat, bar.beattype));
    bar.events.push_back({index++, tick, ticks, BarEvent::Kind::rest, {}, {}});
    tick += ticks;
  }
}

void SongBars::readTones(QBSong& song) {
  RingingStrings strings(m_rings);
  NameSpans names(capoOfTablature(song));
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

void SongBars::readLower() {
  const std::vector<Held> held = heldBelow(m_rings, m_bars);
  for (Bar& bar : m_bars) bar.lower = lowerOf(bar, held);
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
