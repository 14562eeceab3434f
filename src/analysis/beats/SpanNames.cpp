// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/SpanNames.h"

#include <algorithm>
#include <array>
#include <string_view>

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

bool isJust(QBHarmony& harmony, int root, unsigned pitchClasses) {
  for (int note = 0; note < kNotesPerOctave; ++note)
    if (harmony.includesNote(root, note) != ((pitchClasses >> note & 1U) != 0)) return false;
  return true;
}

}  // namespace

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

std::vector<unsigned> pitchClassesOfSpans(std::span<const fingering::Note> notes,
                                          const rhythm::Reading& reading) {
  std::vector<Weights> weights(reading.chords.size());
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const double from = reading.tickOf(notes[i].onset);
    const double to = reading.tickOf(notes[i].end);
    const auto first = std::ranges::upper_bound(reading.chords, from, {},
                                                [](const auto& span) { return span.to; });
    for (auto span = first; span != reading.chords.end() && span->from < to; ++span) {
      const double shared = std::min<double>(to, span->to) - std::max<double>(from, span->from);
      const auto at = static_cast<std::size_t>(span - reading.chords.begin());
      weights[at][static_cast<std::size_t>(notes[i].pitch % kNotesPerOctave)] +=
          shared * static_cast<double>(notes[i].probability);
    }
  }
  std::vector<unsigned> classes;
  for (const Weights& each : weights) classes.push_back(mainOnes(each));
  return classes;
}

QBHarmony* harmonyOf(const QBTabMgr& db, const rhythm::ChordSpan& span, unsigned pitchClasses) {
  QBHarmony* usual = nullptr;
  QBHarmony* just = nullptr;
  for (const auto& harmony : db.harmonies()) {
    if (harmony->type() == typeOf(span.quality)) usual = harmony;
    if (isJust(*harmony, span.root, pitchClasses)) just = harmony;
  }
  return just ? just : usual;
}

}  // namespace korvel
