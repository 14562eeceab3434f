// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/Spelling.h"

#include <algorithm>
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

/// How many fifths above C a name is, by its step.
constexpr int kFifthsOfSteps[kSteps] = {0, 2, 4, -1, 1, 3, 5};
constexpr int kFifthsOfSharp = 7;
constexpr int kMostFifths = 6;

int floorDivided(int value, int by) { return (value >= 0 ? value : value - by + 1) / by; }

/// The name so many fifths above C.
Name nameOfFifths(int fifths) {
  const int alter = floorDivided(fifths + 1, kFifthsOfSharp);
  const int natural = fifths - alter * kFifthsOfSharp;
  const auto* step = std::ranges::find(kFifthsOfSteps, natural);
  return {static_cast<int>(step - kFifthsOfSteps), alter};
}

/// From four fifths below the tonic of a major key to seven above it; a minor key also has what
/// leads to its tonic and to its fifth. What is no black key has a sign only where the key's own
/// tones, or those, do.
Name nameIn(const ScoreKey& key, int note) {
  constexpr int kLowestOwn = -1;
  const int centre = fifthsOf(key);
  const int lowest = centre - (key.minor ? 3 : 4);
  const int highestOwn = centre + (key.minor ? 8 : 5);
  const int fifths = lowest + pitchClass(note * kFifthsOfSharp - lowest);
  const Name name = nameOfFifths(fifths);
  const bool isOwn = fifths >= centre + kLowestOwn && fifths <= highestOwn;
  const bool isPlain = kNames[note].alter == 0;
  return std::abs(name.alter) > 1 || (isPlain && !isOwn) ? kNames[note] : name;
}

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

int fifthsOf(const ScoreKey& key) {
  constexpr int kToRelativeMajor = 3;
  const int tonic = pitchClass(key.tonic + (key.minor ? kToRelativeMajor : 0));
  const int fifths = pitchClass(tonic * kFifthsOfSharp);
  // Of the keys with six, F# major and Eb minor have the names of the program.
  const bool isFlat = fifths > kMostFifths || (fifths == kMostFifths && key.minor);
  return isFlat ? fifths - kNotesPerOctave : fifths;
}

SpelledNote spelled(int pitch, const ScoreHarmony* harmony, const ScoreKey* key) {
  const auto nameOf = [key](int note) { return key ? nameIn(*key, note) : kNames[note]; };
  const int note = pitchClass(pitch);
  if (harmony) {
    const Name root = nameOf(pitchClass(harmony->root));
    const int above = stepsAbove(pitchClass(note - harmony->root), harmony->type);
    const int step = (root.step + above) % kSteps;
    const int alter = alteration(note, step);
    if (std::abs(alter) <= 1 && pitch >= alter) return written(pitch, step, alter);
  }
  const Name name = nameOf(note);
  return written(pitch, name.step, name.alter);
}

}  // namespace korvel
