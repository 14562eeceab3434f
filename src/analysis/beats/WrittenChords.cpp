// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/WrittenChords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "music/Neck.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::Event;
using rhythm::Reading;

constexpr int kNever = 1 << 30;
constexpr int kEighthsOfCompoundBeat = 3;

std::int64_t sampleOf(double seconds) {
  return std::max<std::int64_t>(std::llround(seconds * platform::kSampleRate), 0);
}

int floorDivided(int value, int by) { return value >= 0 ? value / by : -((by - 1 - value) / by); }

bool isOnNeck(const Note& note) { return note.string >= 0 && note.string < kStrings; }

/// The middle one, so that most notes of a strum lie near it.
double timeOf(const Event& event, std::span<const Note> notes) {
  std::vector<double> onsets;
  for (const std::size_t index : event.notes) onsets.push_back(notes[index].onset);
  const auto middle = onsets.begin() + static_cast<std::ptrdiff_t>(onsets.size() / 2);
  std::ranges::nth_element(onsets, middle);
  return *middle;
}

class Writer {
 public:
  Writer(std::span<const Note> notes, const Reading& reading, std::optional<int> from)
      : m_notes(notes),
        m_reading(reading),
        m_from(from.value_or(kNever)),
        m_barTicks(std::max(reading.metre.ticks(), 1)) {}

  std::vector<WrittenChord> write() {
    if (m_reading.events.empty() || m_reading.beats.size() < 2) return {};
    begin();
    for (std::size_t i = 0; i < m_reading.events.size(); ++i) addEvent(i);
    fillLastBar();
    return std::move(m_chords);
  }

 private:
  /// Before the first bar line there is only a pick-up; after it a bar begins with a rest.
  void begin() {
    const int first = std::min(m_from, m_reading.events.front().place.tick);
    m_firstBar = floorDivided(first, m_barTicks);
    m_at = first < 0 ? first : m_firstBar * m_barTicks;
    m_nextStrike = nextStrikes();
  }

  /// For each event and string the tick at which that is struck next.
  std::vector<std::array<int, kStrings>> nextStrikes() const {
    const auto& events = m_reading.events;
    std::vector<std::array<int, kStrings>> next(events.size());
    std::array<int, kStrings> upcoming;
    upcoming.fill(kNever);
    for (std::size_t i = events.size(); i-- > 0;) {
      next[i] = upcoming;
      for (const std::size_t note : events[i].notes)
        if (isOnNeck(m_notes[note]))
          upcoming[static_cast<std::size_t>(m_notes[note].string)] = events[i].place.tick;
    }
    return next;
  }

  void addEvent(std::size_t index) {
    const Event& event = m_reading.events[index];
    const bool isLast = index + 1 == m_reading.events.size();
    const int next = isLast ? kNever : m_reading.events[index + 1].place.tick;
    const int end = std::min(event.place.end(), next);
    if (event.place.tick < m_at || end <= event.place.tick) return;  // no reading has such places
    fillTo(event.place.tick);
    const int barEnd = endOfBar(m_at);
    WrittenChord chord = chordTo(std::min(end, barEnd));
    chord.onset = sampleOf(timeOf(event, m_notes));
    chord.tones = tonesOf(index);
    m_chords.push_back(std::move(chord));
    fillTo(end);
  }

  std::vector<WrittenTone> tonesOf(std::size_t index) const {
    const Event& event = m_reading.events[index];
    std::vector<WrittenTone> tones;
    for (const std::size_t i : event.notes) {
      const Note& note = m_notes[i];
      if (!isOnNeck(note)) continue;
      const int nextStrike = m_nextStrike[index][static_cast<std::size_t>(note.string)];
      const int end = std::min(event.place.tick + m_reading.notes[i].ticks, nextStrike);
      tones.push_back(
          {note.string, note.fret, note.amplitude, std::max(end - event.place.tick, 1)});
    }
    std::ranges::stable_sort(tones, std::greater(), &WrittenTone::amplitude);
    std::vector<WrittenTone> alone;
    for (const WrittenTone& tone : tones)
      if (std::ranges::find(alone, tone.string, &WrittenTone::string) == alone.end())
        alone.push_back(tone);
    return alone;
  }

  /// Chords without tones, none across a bar line.
  void fillTo(int tick) {
    while (m_at < tick) {
      WrittenChord chord = chordTo(std::min(tick, endOfBar(m_at)));
      chord.onset = chord.beatTime;
      m_chords.push_back(std::move(chord));
    }
  }

  void fillLastBar() {
    if (const int over = m_at - floorDivided(m_at, m_barTicks) * m_barTicks; over > 0)
      fillTo(m_at + m_barTicks - over);
  }

  WrittenChord chordTo(int end) {
    WrittenChord chord;
    chord.tick = m_at;
    chord.ticks = end - m_at;
    chord.bar = floorDivided(m_at, m_barTicks) - m_firstBar;
    chord.beatTime = sampleOf(m_reading.secondsOf(m_at));
    chord.span = spanAt(m_at);
    m_at = end;
    return chord;
  }

  int endOfBar(int tick) const { return (floorDivided(tick, m_barTicks) + 1) * m_barTicks; }

  int spanAt(int tick) {
    const auto& spans = m_reading.chords;
    while (m_span < spans.size() && spans[m_span].to <= tick) ++m_span;
    const bool isIn =
        m_span < spans.size() && spans[m_span].from <= tick && spans[m_span].root >= 0;
    return isIn ? static_cast<int>(m_span) : -1;
  }

  std::span<const Note> m_notes;
  const Reading& m_reading;
  int m_from;
  int m_barTicks;
  int m_firstBar = 0;
  int m_at = 0;  ///< The end of what is written.
  std::size_t m_span = 0;
  std::vector<std::array<int, kStrings>> m_nextStrike;
  std::vector<WrittenChord> m_chords;
};

}  // namespace

std::vector<WrittenChord> writtenChords(std::span<const Note> notes, const Reading& reading,
                                        std::optional<int> from) {
  return Writer(notes, reading, from).write();
}

TimeSignature signatureOf(const rhythm::Metre& metre) {
  if (metre.compound) return {metre.beats * kEighthsOfCompoundBeat, 8};
  return {metre.beats, 4};
}

std::optional<rhythm::Metre> metreOf(const TimeSignature& signature) {
  const bool compound = signature.beattype == 8 && signature.beat % kEighthsOfCompoundBeat == 0;
  const rhythm::Metre metre{compound ? signature.beat / kEighthsOfCompoundBeat : signature.beat,
                            compound};
  if (metre.beats < 2 || metre.beats > 4 || signatureOf(metre) != signature) return {};
  return metre;
}

}  // namespace korvel
