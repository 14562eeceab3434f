// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/Spelling.h"

#include <cstdlib>

#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kSteps = 7;
constexpr char kStepNames[] = "CDEFGAB";
constexpr int kNaturals[kSteps] = {0, 2, 4, 5, 7, 9, 11};

/// Step and alteration of the names that roots have.
struct Name {
  int step;
  int alter;
};
constexpr Name kNames[kNotesPerOctave] = {{0, 0}, {0, 1}, {1, 0},  {2, -1}, {2, 0},  {3, 0},
                                          {3, 1}, {4, 0}, {5, -1}, {5, 0},  {6, -1}, {6, 0}};

bool has(const std::string& type, const char* part) { return type.find(part) != std::string::npos; }

/// Steps from the root to a tone that many half tones above it.
int stepsAbove(int halfTones, const std::string& type) {
  constexpr int kUsual[kNotesPerOctave] = {0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};
  if (halfTones == 3 && has(type, "#9")) return 1;
  if (halfTones == 8 && (has(type, "aug") || has(type, "#5"))) return 4;
  if (halfTones == 9 && has(type, "dim7")) return 6;
  return kUsual[halfTones];
}

SpelledNote written(int pitch, int step, int alter) {
  return {kStepNames[step], alter, (pitch - alter) / kNotesPerOctave - 1};
}

/// The way from a natural note to a pitch class, at most half an octave.
int alteration(int note, int step) {
  return pitchClass(note - kNaturals[step] + kNotesPerOctave / 2) - kNotesPerOctave / 2;
}

}  // namespace

SpelledNote spelled(int pitch, const ScoreHarmony* harmony) {
  const int note = pitchClass(pitch);
  if (harmony) {
    const Name& root = kNames[pitchClass(harmony->root)];
    const int above = stepsAbove(pitchClass(note - harmony->root), harmony->type);
    const int step = (root.step + above) % kSteps;
    const int alter = alteration(note, step);
    if (std::abs(alter) <= 1 && pitch >= alter) return written(pitch, step, alter);
  }
  return written(pitch, kNames[note].step, kNames[note].alter);
}

}  // namespace korvel
