// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/HandScores.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "fingering/grips/ChordShapes.h"

namespace korvel::fingering {
namespace {

/// Frets that the fingers of a hand at rest cover beyond the first.
constexpr int kReach = 3;
/// Where the hand may be while no string is pressed.
constexpr Places kAtEase{1, 12};

// Melodies: a finger behind the hand's place, or one fret or more beyond its reach.
constexpr double kBehind = -2.73;
constexpr double kStretched = -2.11;
constexpr double kOutOfReach = -1;

/// For each open string, with the hand at the first two frets, at the next two, and above.
struct OpenScores {
  double low = 0;
  double middle = 0;
  double high = 0;
  double fit = 0;  ///< On top, times how well open strings fit.
};
constexpr OpenScores kOpenOfLine{.45, -.62, -1.45, .44};
constexpr OpenScores kOpenOfChord{-.04, -.3, -.8, .43};
constexpr int kLowPlaces = 2;
constexpr int kMiddlePlaces = 4;

/// Melodies: for each fret of the hand above the first, where all speaks for the open position.
constexpr double kPerFretFromNut = -.5;

/// Chords: for each fret of the hand above the third, and more above the sixth.
constexpr double kPerPlace = -.05;
constexpr int kFreePlaces = 3;
constexpr double kPerHighPlace = -.2;
constexpr int kEasyPlaces = 6;
/// For each fret above the one from which the body is in the way.
constexpr double kPerHighFret = -.3;
constexpr int kEasyFretsOfLine = 13;
constexpr int kEasyFretsOfChord = 10;

constexpr double kSpanOfThree = -.6;
constexpr double kSpanOfFour = -.63;
constexpr double kPerWiderFret = -1.95;
constexpr int kWideSpan = 3;
constexpr double kLittleFinger = .34;  ///< Chords: the fourth finger stretches by one fret.
constexpr double kPerGap = -1.72;
constexpr double kPerFinger = -.09;
constexpr int kFingers = 4;

constexpr double kFastSeconds = .2;
constexpr double kSlowSeconds = .6;
constexpr double kUp = -.6;

// Melodies, from note to note: by semitones up to two, up to four, and more.
using ByInterval = std::array<double, 3>;
constexpr ByInterval kOnSameString{1.03, .81, .46};
constexpr ByInterval kOnNextString{.08, .42, -.19};
constexpr double kRepeated = 2.16;
constexpr double kTwoStrings = -.65;
constexpr double kThreeStrings = -1.66;
constexpr double kContrary = -1.37;
constexpr double kOpenAndHigh = -.73;
constexpr int kHighFret = 5;

constexpr double kCommonPitch = .97;
constexpr double kSameStrings = .39;
constexpr double kPerCommonString = .44;

/// A string that is needed for another fret while its note sounds on: seconds that cost nothing,
/// and beyond these until the loss costs all. Ends of notes are heard late rather than early.
constexpr double kCut = -3.09;
constexpr double kCutFree = .1;
constexpr double kCutFull = .3;

double beyond(int value, int limit) { return std::max(0, value - limit); }

double scoreOfFinger(int offset) {
  if (offset < 0) return kBehind;
  if (offset <= kReach) return 0;
  return offset == kReach + 1 ? kStretched : kOutOfReach;
}

double scoreOfOpen(int place, const OpenScores& scores, double fit) {
  const double here = place <= kLowPlaces      ? scores.low
                      : place <= kMiddlePlaces ? scores.middle
                                               : scores.high;
  return here + scores.fit * fit;
}

double byInterval(const ByInterval& scores, int semitones) {
  constexpr int kStep = 2;
  constexpr int kThird = 4;
  return semitones <= kStep ? scores[0] : semitones <= kThird ? scores[1] : scores[2];
}

/// From one note of a melody to the next.
double scoreOfInterval(const Held& from, const Held& to, std::span<const Note> notes) {
  const int string = from.grip->string[0];
  const int next = to.grip->string[0];
  if (string == Grip::kNone || next == Grip::kNone) return 0;
  const int rise = notes[to.event[0]].pitch - notes[from.event[0]].pitch;
  const int far = std::abs(next - string);
  if (rise == 0) return far == 0 ? kRepeated : 0;
  const bool contrary = (next - string) * rise < 0;
  double score = 0;
  if (far == 0)
    score = byInterval(kOnSameString, std::abs(rise));
  else if (far == 1 && !contrary)
    score = byInterval(kOnNextString, std::abs(rise));
  else if (far == 2)
    score = kTwoStrings;
  else if (far > 2)
    score = kThreeStrings;
  if (contrary) score += kContrary;
  const int fret = from.grip->highest;
  const int nextFret = to.grip->highest;
  if ((fret == 0 && nextFret >= kHighFret) || (nextFret == 0 && fret >= kHighFret))
    score += kOpenAndHigh;
  return score;
}

double scoreOfCommonPitches(const Held& from, const Held& to, std::span<const Note> notes) {
  double score = 0;
  for (std::size_t i = 0; i < from.event.size(); ++i)
    for (std::size_t j = 0; j < to.event.size(); ++j) {
      const int string = from.grip->string[i];
      const int next = to.grip->string[j];
      if (notes[from.event[i]].pitch != notes[to.event[j]].pitch || string == Grip::kNone ||
          next == Grip::kNone)
        continue;
      score += string == next ? kCommonPitch : -kCommonPitch;
    }
  return score;
}

double scoreOfCommonStrings(const Grip& from, const Grip& to) {
  int common = 0;
  int either = 0;
  for (std::size_t s = 0; s < kStrings; ++s) {
    const bool before = from.fret[s] != Grip::kNone;
    const bool after = to.fret[s] != Grip::kNone;
    common += before && after ? 1 : 0;
    either += before || after ? 1 : 0;
  }
  if (common == 0) return 0;
  return kPerCommonString * common / either + (common == either ? kSameStrings : 0);
}

double scoreOfCutting(const Held& from, const Held& to, std::span<const Note> notes) {
  double score = 0;
  for (std::size_t i = 0; i < from.event.size(); ++i) {
    if (from.grip->string[i] == Grip::kNone) continue;
    const auto string = static_cast<std::size_t>(from.grip->string[i]);
    const int fret = to.grip->fret[string];
    if (fret == Grip::kNone || fret == from.grip->fret[string]) continue;
    const double lost = (notes[from.event[i]].end - to.onset - kCutFree) / kCutFull;
    score += kCut * std::clamp(lost, 0.0, 1.0);
  }
  return score;
}

}  // namespace

Places placesOf(const Grip& grip) {
  if (grip.highest == 0) return kAtEase;
  Places places;
  if (grip.played == 1)
    places = {grip.highest - kReach - 1, grip.lowest + 1};
  else if (grip.span() > kReach)
    places = {std::min(grip.highest - kReach - 1, grip.lowest), grip.lowest};
  else
    places = {grip.highest - kReach, grip.lowest};
  return {std::clamp(places.first, kFirstPlace, kLastPlace),
          std::clamp(places.last, kFirstPlace, kLastPlace)};
}

double scoreOf(const Grip& grip, const Passage& passage) {
  const int easyFrets = passage.line ? kEasyFretsOfLine : kEasyFretsOfChord;
  double score = kPerHighFret * beyond(grip.highest, easyFrets) + kPerGap * grip.gaps +
                 kPerFinger * beyond(grip.fingers, kFingers) + familiarity(grip);
  if (grip.span() >= kWideSpan) score += kSpanOfThree;
  if (grip.span() > kWideSpan)
    score += kSpanOfFour + kPerWiderFret * beyond(grip.span(), kWideSpan + 1);
  return score;
}

double scoreAt(int place, const Grip& grip, const Passage& passage) {
  double score =
      grip.open * scoreOfOpen(place, passage.line ? kOpenOfLine : kOpenOfChord, passage.openFit);
  if (grip.played == 1 && grip.highest > 0)
    score += scoreOfFinger(grip.highest - place);
  else if (grip.highest - place == kReach + 1)
    score += kLittleFinger;
  if (passage.line)
    score += kPerFretFromNut * passage.openPosition * (place - kFirstPlace);
  else
    score += kPerPlace * beyond(place, kFreePlaces) + kPerHighPlace * beyond(place, kEasyPlaces);
  return score;
}

Pace paceOf(double seconds) {
  if (seconds < kFastSeconds) return Pace::fast;
  return seconds <= kSlowSeconds ? Pace::medium : Pace::slow;
}

double scoreOfMove(int from, int to, Pace pace) {
  /// From so many frets on, at each pace.
  struct Far {
    int frets;
    std::array<double, kPaces> score;
  };
  static constexpr std::array kFar{Far{1, {-2.88, -3.05, -1.51}}, Far{2, {-.89, -.54, -.55}},
                                   Far{3, {-.45, 0, -.62}}, Far{5, {-.12, 0, -.26}},
                                   Far{7, {-.37, 0, -.14}}};
  double score = to > from ? kUp : 0;
  for (const Far& far : kFar)
    if (std::abs(to - from) >= far.frets) score += far.score[static_cast<std::size_t>(pace)];
  return score;
}

double scoreOfStep(const Held& from, const Held& to, std::span<const Note> notes) {
  const double score = scoreOfCutting(from, to, notes);
  if (from.event.size() == 1 && to.event.size() == 1)
    return score + scoreOfInterval(from, to, notes);
  const bool chords = from.event.size() > 1 && to.event.size() > 1;
  return score + scoreOfCommonPitches(from, to, notes) +
         (chords ? scoreOfCommonStrings(*from.grip, *to.grip) : 0);
}

}  // namespace korvel::fingering
