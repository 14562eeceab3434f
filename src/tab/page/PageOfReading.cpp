// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageOfReading.h"

#include <algorithm>

#include "analysis/beats/SpanNames.h"
#include "analysis/beats/SpanProbabilities.h"
#include "analysis/beats/WrittenChords.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

void layBars(const rhythm::Reading& reading, PageSource& source) {
  const TimeSignature signature = signatureOf(reading.metre);
  const int whole = std::max(reading.metre.ticks(), rhythm::kTicksOfBeat);
  const int end = reading.chords.back().to;
  int tick = reading.chords.front().from;
  int number = tick < 0 ? 0 : 1;
  while (tick < end) {
    // A pick-up is what lies before the first bar line, were it more than a bar.
    const int next = tick < 0 ? 0 : tick + whole - tick % whole;
    source.bars.push_back({tick, next - tick, signature.beat, signature.beattype, number++});
    tick = next;
  }
}

}  // namespace

PageSource pageSourceOf(const rhythm::Reading& reading) {
  PageSource source;
  source.tempo = reading.tempo();
  if (reading.key) source.key = reading.key->tonic + (reading.key->minor ? kNotesPerOctave : 0);
  source.isInBars = true;
  if (reading.chords.empty()) return source;
  layBars(reading, source);
  for (const rhythm::ChordSpan& span : reading.chords) {
    PageSource::Chord chord;
    chord.tick = span.from;
    chord.ticks = span.to - span.from;
    chord.root = span.root;
    if (span.root >= 0) {
      chord.type = typeOf(span);
      chord.pitchClasses = tonesOfName(span);
      if (span.bass != span.root) chord.bass = span.bass;
      chord.isDoubtful = span.probability < kSureName;
    }
    source.chords.push_back(std::move(chord));
  }
  return source;
}

}  // namespace korvel
