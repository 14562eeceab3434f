// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/ChordChart.h"

#include <algorithm>

#include "analysis/beats/SpanNames.h"
#include "analysis/beats/SpanProbabilities.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using rhythm::ChordSpan;
using rhythm::kTicksOfBeat;
using rhythm::Reading;

constexpr int kBarsOfLine = 4;

bool isNone(const ChordSpan& span) { return span.root < 0; }

/// Without the rests that nobody counts before and after the music.
int firstTick(const Reading& reading) {
  const ChordSpan& first = reading.chords.front();
  return isNone(first)
             ? std::max(first.from, std::min(first.to - 1, 0)) / kTicksOfBeat * kTicksOfBeat
             : first.from;
}

const ChordSpan* spanAt(const Reading& reading, int tick) {
  const auto found = std::ranges::upper_bound(reading.chords, tick, {}, &ChordSpan::to);
  const bool isIn = found != reading.chords.end() && found->from <= tick;
  return isIn ? &*found : nullptr;
}

std::string markedName(const ChordSpan& span, const std::optional<rhythm::Key>& key) {
  return nameOf(span, key) + (isNone(span) || span.probability >= kSureName ? "" : "?");
}

std::string barText(const Reading& reading, int from, int to) {
  const ChordSpan* first = spanAt(reading, from);
  if (first && isNone(*first) && first->to >= to) return "-";
  std::string text;
  for (int tick = from; tick < to; tick += kTicksOfBeat) {
    const ChordSpan* span = spanAt(reading, tick);
    const bool begins = span && (tick == from || span->from > tick - kTicksOfBeat);
    if (tick > from) text += ' ';
    text += begins ? markedName(*span, reading.key) : ".";
  }
  return text;
}

}  // namespace

std::string nameOf(const ChordSpan& span, const std::optional<rhythm::Key>& key) {
  if (isNone(span)) return "-";
  const int number = key ? key->tonic + (key->minor ? kNotesPerOctave : 0) : -1;
  const std::string name = std::string(nameInKey(span.root, number)) + std::string(typeOf(span));
  return span.bass < 0 ? name : name + '/' + std::string(nameInKey(span.bass, number));
}

std::string chordChart(const Reading& reading) {
  if (std::ranges::all_of(reading.chords, isNone)) return {};
  const int bar = std::max(reading.metre.ticks(), kTicksOfBeat);
  const ChordSpan& last = reading.chords.back();
  const int end = isNone(last) ? last.from : last.to;
  std::string chart;
  int tick = firstTick(reading);
  int bars = tick < 0 ? -1 : 0;
  while (tick < end) {
    const int next = tick < 0 ? tick + (-tick - 1) % bar + 1 : tick + bar - tick % bar;
    chart +=
        (chart.empty() || chart.back() == '\n' ? "| " : " ") + barText(reading, tick, next) + " |";
    if (++bars == kBarsOfLine || next >= end) {
      chart += '\n';
      bars = 0;
    }
    tick = next;
  }
  return chart;
}

}  // namespace korvel
