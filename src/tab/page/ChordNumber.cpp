// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/ChordNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using Steps = std::array<std::string_view, kNotesPerOctave>;

constexpr Steps kRomanInMajor{"I",   "bII", "II",  "bIII", "III",  "IV",
                              "#IV", "V",   "bVI", "VI",   "bVII", "VII"};
constexpr Steps kRomanInMinor{"I",   "bII", "II", "III", "#III", "IV",
                              "#IV", "V",   "VI", "#VI", "VII",  "#VII"};
constexpr Steps kNashville{"1", "b2", "2", "b3", "3", "4", "#4", "5", "b6", "6", "b7", "7"};
/// From the tonic of a minor key up to that of the major one with its notes.
constexpr int kToRelativeMajor = 3;

bool isMinorKey(int key) { return key >= kNotesPerOctave; }

bool isMinorType(std::string_view type) {
  return type.starts_with("dim") || (type.starts_with('m') && !type.starts_with("maj"));
}

/// Letters in lower case; accidentals are so already.
std::string inLowerCase(std::string_view numeral) {
  std::string text(numeral);
  std::ranges::replace(text, 'I', 'i');
  std::ranges::replace(text, 'V', 'v');
  return text;
}

std::string_view romanStep(int note, int key) {
  const Steps& steps = isMinorKey(key) ? kRomanInMinor : kRomanInMajor;
  return steps.at(static_cast<std::size_t>(pitchClass(note - key)));
}

std::string romanOf(const PageSource::Chord& chord, int key) {
  const std::string_view type = chord.type;
  const std::string_view step = romanStep(chord.root, key);
  if (type == "m7b5") return inLowerCase(step) + "\u00F87";
  if (type.starts_with("dim")) return inLowerCase(step) + "\u00B0" + std::string(type.substr(3));
  if (type == "aug") return std::string(step) + "+";
  if (isMinorType(type)) return inLowerCase(step) + std::string(type.substr(1));
  return std::string(step) + std::string(type);
}

std::string_view nashvilleStep(int note, int key) {
  const int tonic = isMinorKey(key) ? key + kToRelativeMajor : key;
  return kNashville.at(static_cast<std::size_t>(pitchClass(note - tonic)));
}

std::string nashvilleOf(const PageSource::Chord& chord, int key) {
  const std::string_view type = chord.type;
  const std::string step(nashvilleStep(chord.root, key));
  if (type == "m7b5") return step + "\u00F87";
  if (type.starts_with("dim")) return step + "\u00B0" + std::string(type.substr(3));
  if (type == "aug") return step + "+";
  if (isMinorType(type)) return step + "-" + std::string(type.substr(1));
  return step + std::string(type);
}

constexpr unsigned scaleOf(int key) {
  constexpr std::array kMajor{0, 2, 4, 5, 7, 9, 11};
  unsigned scale = 0;
  for (const int step : kMajor)
    scale |= 1U << pitchClass(key + step + (key >= kNotesPerOctave ? kToRelativeMajor : 0));
  return scale;
}

/// How much one chord speaks for a key, for each tick of it.
double beliefIn(int key, const PageSource::Chord& chord) {
  const unsigned tones = chord.pitchClasses | 1U << chord.root;
  const bool isTonic = pitchClass(key) == chord.root && isMinorType(chord.type) == isMinorKey(key);
  const int strange = std::popcount(tones & ~scaleOf(key));
  return (strange == 0 ? 1.0 : -0.5 * strange) + (isTonic ? 0.5 : 0.0);
}

}  // namespace

std::string chordNumber(const PageSource::Chord& chord, int key, ChordNumbers numbers) {
  const bool isRoman = numbers == ChordNumbers::roman;
  const std::string number = isRoman ? romanOf(chord, key) : nashvilleOf(chord, key);
  if (chord.bass < 0) return number;
  return number + '/' + std::string(nashvilleStep(chord.bass, isRoman ? pitchClass(key) : key));
}

int guessedKey(std::span<const PageSource::Chord> chords) {
  constexpr double kOuter = 24;  // ticks: two beats
  int best = -1;
  double most = 0;
  for (int key = 0; key < 2 * kNotesPerOctave; ++key) {
    double sum = 0;
    const PageSource::Chord* last = nullptr;
    for (const PageSource::Chord& chord : chords) {
      if (chord.root < 0) continue;
      sum += chord.ticks * beliefIn(key, chord) + (last ? 0 : kOuter * beliefIn(key, chord));
      last = &chord;
    }
    if (!last) return -1;
    sum += kOuter * beliefIn(key, *last);
    if (best >= 0 && sum <= most) continue;
    best = key;
    most = sum;
  }
  return best;
}

std::string nameOfKey(int key) {
  return std::string(nameInKey(pitchClass(key), key)) + (isMinorKey(key) ? "m" : "");
}

}  // namespace korvel
