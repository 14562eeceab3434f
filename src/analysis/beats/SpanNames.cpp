// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/SpanNames.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <vector>

#include "chords/Chord.h"
#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using rhythm::Quality;

/// Of the time that all notes of a span sound together; what has less of it only passes.
constexpr double kLeastShare = 0.1;

using Weights = std::array<double, kNotesPerOctave>;

unsigned mainOnes(const Weights& weights) {
  double all = 0;
  for (const double weight : weights) all += weight;
  unsigned classes = 0;
  for (std::size_t i = 0; i < weights.size(); ++i)
    if (weights[i] > 0 && weights[i] >= kLeastShare * all) classes |= 1U << i;
  return classes;
}

/// A type by the tones that it has, bit n for n half tones above the root.
struct TypeOfTones {
  unsigned tones;
  std::string_view type;
};

constexpr unsigned setOf(std::initializer_list<int> steps) {
  unsigned tones = 0;
  for (const int step : steps) tones |= 1U << step;
  return tones;
}

constexpr TypeOfTones kTypes[] = {{setOf({0, 5, 7}), "sus4"},
                                  {setOf({0, 2, 7}), "sus2"},
                                  {setOf({0, 3, 6}), "dim"},
                                  {setOf({0, 4, 8}), "aug"},
                                  {setOf({0, 5, 7, 10}), "7sus4"},
                                  {setOf({0, 2, 4, 7}), "add9"},
                                  {setOf({0, 3, 6, 10}), "m7b5"},
                                  {setOf({0, 3, 6, 9}), "dim7"},
                                  {setOf({0, 4, 7, 9}), "6"},
                                  {setOf({0, 3, 7, 9}), "m6"},
                                  {setOf({0, 2, 4, 5, 7, 10}), "11"},
                                  {setOf({0, 2, 4, 7, 9, 10}), "13"},
                                  {setOf({0, 2, 4, 7, 10}), "9"},
                                  {setOf({0, 4, 7}), ""},
                                  {setOf({0, 3, 7}), "m"},
                                  {setOf({0, 4, 7, 10}), "7"},
                                  {setOf({0, 3, 7, 10}), "m7"},
                                  {setOf({0, 4, 7, 11}), "maj7"},
                                  {setOf({0, 2, 4, 7, 11}), "maj9"},
                                  {setOf({0, 2, 3, 7, 10}), "m9"}};

/// A fifth alone; where a third was heard, however faint, the quality tells it.
constexpr TypeOfTones kPower{setOf({0, 7}), "5"};

unsigned above(int root, unsigned pitchClasses) {
  const unsigned all = (1U << kNotesPerOctave) - 1;
  return (pitchClasses >> root | pitchClasses << (kNotesPerOctave - root)) & all;
}

std::string_view typeOf(Quality quality) {
  switch (quality) {
    case Quality::minor:
      return "m";
    case Quality::seventh:
      return "7";
    case Quality::minorSeventh:
      return "m7";
    case Quality::majorSeventh:
      return "maj7";
    case Quality::major:
      break;
  }
  return "";
}

}  // namespace

std::string_view typeOf(const rhythm::ChordSpan& span) {
  const unsigned tones = span.root < 0 ? 0 : above(span.root, span.pitchClasses);
  if (tones == kPower.tones && span.quality == Quality::major) return kPower.type;
  const auto* found = std::ranges::find(kTypes, tones, &TypeOfTones::tones);
  return found == std::end(kTypes) ? typeOf(span.quality) : found->type;
}

unsigned tonesOfName(const rhythm::ChordSpan& span) {
  if (span.root < 0) return 0;
  const std::string_view type = typeOf(span);
  const auto* found = std::ranges::find(kTypes, type, &TypeOfTones::type);
  const unsigned tones = found == std::end(kTypes) ? kPower.tones : found->tones;
  return above(kNotesPerOctave - span.root, tones);
}

std::string labelOf(const rhythm::ChordSpan& span) {
  constexpr std::string_view kRoots[] = {"C",  "Db", "D",  "Eb", "E",  "F",
                                         "Gb", "G",  "Ab", "A",  "Bb", "B"};
  if (span.root < 0) return "N";
  const std::string root = std::string(kRoots[span.root]) + ':';
  for (std::size_t i = 0; i < chords::kKinds; ++i) {
    const chords::KindOfChord& kind = chords::of(static_cast<chords::Kind>(i));
    if (kind.type == typeOf(span)) return root + std::string(kind.plain);
  }
  return root + std::string(chords::of(static_cast<chords::Kind>(span.quality)).plain);
}

void tellPitchClasses(std::span<const fingering::Note> notes, rhythm::Reading& reading) {
  std::vector<Weights> weights(reading.chords.size());
  for (const fingering::Note& note : notes) {
    if (note.string < 0) continue;
    const double from = reading.tickOf(note.onset);
    const double to = reading.tickOf(note.end);
    const auto first = std::ranges::upper_bound(reading.chords, from, {},
                                                [](const auto& span) { return span.to; });
    for (auto span = first; span != reading.chords.end() && span->from < to; ++span) {
      const double shared = std::min<double>(to, span->to) - std::max<double>(from, span->from);
      const auto at = static_cast<std::size_t>(span - reading.chords.begin());
      weights[at][static_cast<std::size_t>(note.pitch % kNotesPerOctave)] +=
          shared * static_cast<double>(note.probability);
    }
  }
  for (std::size_t i = 0; i < weights.size(); ++i)
    reading.chords[i].pitchClasses = mainOnes(weights[i]);
}

QBHarmony* harmonyOf(const QBTabMgr& db, const rhythm::ChordSpan& span) {
  QBHarmony* named = nullptr;
  for (const auto& harmony : db.harmonies())
    if (harmony->type() == typeOf(span)) named = harmony;
  return named;
}

}  // namespace korvel
