// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/BeatMusic.h"

#include <algorithm>
#include <set>

#include "export/score/Voices.h"

namespace korvel {
namespace {

int endOf(const BeatBar& bar) { return bar.start + bar.length; }

/// A name and where it begins to count.
struct Named {
  int start;
  std::optional<ScoreHarmony> harmony;
};

std::vector<Named> namesOf(const std::vector<BeatChord>& chords) {
  std::vector<Named> names;
  for (const BeatChord& chord : chords) {
    if (chord.tones.empty() && !chord.harmony) continue;
    if (names.empty() || names.back().harmony != chord.harmony)
      names.push_back({chord.start, chord.harmony});
  }
  return names;
}

/// One voice, as events from end to end.
class VoiceLine {
 public:
  VoiceLine(const std::vector<VoicedTone>& tones, const std::vector<Named>& names)
      : m_tones(tones), m_names(names) {
    for (const VoicedTone& tone : tones) m_cuts.insert({tone.start, tone.end});
  }

  void cutAtNames() {
    for (const Named& name : m_names) m_cuts.insert(name.start);
  }

  /// The bars are to be asked for in order.
  std::vector<ScoreEvent> events(const BeatBar& bar) {
    std::vector<ScoreEvent> events;
    for (int from = bar.start; from < endOf(bar);) {
      const auto cut = m_cuts.upper_bound(from);
      const int to = cut == m_cuts.end() ? endOf(bar) : std::min(*cut, endOf(bar));
      events.push_back(eventOf(from, to));
      from = to;
    }
    return events;
  }

 private:
  ScoreEvent eventOf(int from, int to) {
    ScoreEvent event{to - from, {}, nameAt(from)};
    for (; m_next < m_tones.size() && m_tones[m_next].start <= from; ++m_next)
      m_sounding.push_back(&m_tones[m_next]);
    std::erase_if(m_sounding, [&](const VoicedTone* tone) { return tone->end <= from; });
    for (const VoicedTone* each : m_sounding) {
      event.tones.push_back(each->tone);
      event.tones.back().tiedBefore = each->start < from;
      event.tones.back().tiedOn = each->end > to;
    }
    std::ranges::sort(event.tones, {}, &ScoreTone::string);
    return event;
  }

  std::optional<ScoreHarmony> nameAt(int place) const {
    const auto after = std::ranges::upper_bound(m_names, place, {}, &Named::start);
    return after == m_names.begin() ? std::nullopt : std::prev(after)->harmony;
  }

  const std::vector<VoicedTone>& m_tones;
  const std::vector<Named>& m_names;
  std::set<int> m_cuts;
  std::size_t m_next = 0;
  std::vector<const VoicedTone*> m_sounding;
};

bool sounds(const std::vector<ScoreEvent>& events) {
  return std::ranges::any_of(events, [](const ScoreEvent& event) { return !event.tones.empty(); });
}

void fillTriplet(ScoreBar& bar) {
  const int missing = writtenPickUp(bar.pickUp, bar.meter) - bar.pickUp;
  if (missing == 0) return;
  bar.pickUp += missing;
  bar.events.insert(bar.events.begin(), {missing, {}, std::nullopt});
  if (!bar.lower.empty()) bar.lower.insert(bar.lower.begin(), {missing, {}, std::nullopt});
  if (bar.pickUp == bar.meter.units()) bar.pickUp = 0;
}

}  // namespace

int writtenPickUp(int length, const Meter& meter) {
  if (length % kUnitsOfThirtySecond == 0) return length;
  return std::min(length + kUnitsOfQuarter - length % kUnitsOfQuarter, meter.units());
}

std::vector<BeatBar> barsOver(int begin, int end, const Meter& meter) {
  const int length = meter.units();
  std::vector<BeatBar> bars;
  int start = begin;
  if (begin < 0 && begin % length != 0) {
    bars.push_back({begin, -begin % length, meter, std::nullopt});
    start = begin + bars.back().length;
  } else if (begin >= 0) {
    start = begin / length * length;
  }
  for (; start < end || bars.empty(); start += length)
    bars.push_back({start, length, meter, std::nullopt});
  return bars;
}

std::vector<ScoreBar> scoreBarsOf(const BeatMusic& music) {
  const Voices voices = voicesOf(music);
  const std::vector<Named> names = namesOf(music.chords);
  VoiceLine upper(voices[0], names);
  VoiceLine lower(voices[1], names);
  upper.cutAtNames();
  std::vector<ScoreBar> bars;
  for (const BeatBar& bar : music.bars) {
    const int pickUp = bar.length < bar.meter.units() ? bar.length : 0;
    bars.push_back({bar.meter, upper.events(bar), lower.events(bar), pickUp, bar.tempo});
    if (!sounds(bars.back().lower)) bars.back().lower.clear();
    fillTriplet(bars.back());
  }
  return bars;
}

}  // namespace korvel
