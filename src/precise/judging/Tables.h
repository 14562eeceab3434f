// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "precise/Scale.h"

/// The numbers of the precise detection that were chosen by measuring. All were tuned on clips
/// whose notes are known: guitars of several sample collections playing scales, chords, melodies
/// and transcribed performances, half of them with varying strength, in rooms and with noise.
namespace korvel::precise {

/// When a curve of activation is a note. Activations are compressed: half means a seventh of the
/// amplitude.
struct TrackerSettings {
  /// A note starts above this, ...
  float start;
  /// ... above this share of the loudest pitch, ...
  float startShare;
  /// ... and where the flux reaches this share of its peak.
  float startFlux;
  /// It ends below this share of the loudest pitch.
  float endShare;
  /// A new note of the same pitch starts where the curve rises by more than this, ...
  float rise;
  /// ... by more than this share of what it was, ...
  float riseShare;
  /// ... and where the flux reaches this share of the new level; ...
  float riseFlux;
  /// ... so many frames after the last start at least.
  Frame riseGap;
  /// Shorter notes are dropped; in frames.
  Frame shortest;
  /// A new note also starts at a peak of the flux above this, 0 for never, ...
  float strikeFlux = 0;
  /// ... if the curve bounces by more than this from the dip there.
  float strikeRise = 0;
};

/// Only what is surely a note, to learn the sound of the instrument from: a click is seen for as
/// long as half the longest window lasts, 9 frames.
inline constexpr TrackerSettings kLearningNotes{.start = 0.7F,
                                                .startShare = 0.05F,
                                                .startFlux = 0.05F,
                                                .endShare = 0.10F,
                                                .rise = 0.40F,
                                                .riseShare = 0.25F,
                                                .riseFlux = 0.10F,
                                                .riseGap = 11,
                                                .shortest = 12};
/// Whatever may be a note, for the formulas to decide.
inline constexpr TrackerSettings kCandidateNotes{.start = 0.3F,
                                                 .startShare = 0.03F,
                                                 .startFlux = 0,
                                                 .endShare = 0.06F,
                                                 .rise = 0.05F,
                                                 .riseShare = 0.02F,
                                                 .riseFlux = 0.0F,
                                                 .riseGap = 7,
                                                 .shortest = 5,
                                                 .strikeFlux = 0.08F,
                                                 .strikeRise = 0.04F};

/// What is known of a candidate for a note that starts while its pitch still sounds. One is the
/// constant 1, so that a product with it is the other factor alone.
enum class ReattackFeature : std::uint8_t {
  One,
  Level,
  Ratio,
  Rise,
  RatioToBefore,
  Flux,
  FluxShare,
  Gap,
  Neighbours,
  NewNeighbours,
  Overall,
  Pitch,
  Soon,
  Bounce,
  BounceRatio,
  Drop,
  BounceOfOthers,
  Others,
  FundamentalFlux,
  OctaveFlux,
  FluxToBefore,
  FluxToAfter,
  Length,
  LevelShare,
  BounceOctaveBelow,
  BounceOctaveAbove,
  BounceTwelfth,
  Covered,
  StrongestRise,
  Remainder,
  BounceBeside,
  Count
};

/// What is known of a candidate for a note; from Odds on, what is known after all have been judged
/// once, of those that it sounds with.
enum class NoteFeature : std::uint8_t {
  One,
  Peak,
  PeakShare,
  Mean,
  MeanShare,
  Duration,
  Flux,
  OctaveBelow,
  TwelfthBelow,
  TwoOctavesBelow,
  FarBelow,
  OctaveAbove,
  TwelfthAbove,
  Beside,
  Polyphony,
  Covered,
  Pitch,
  Reattack,
  Decay,
  Share,
  Fundamental,
  FundamentalToEven,
  ThirdToEven,
  OddToEven,
  OddFlux,
  FundamentalFlux,
  LocalShare,
  Before,
  Sustain,
  TwoOctavesAbove,
  Fifths,
  SecondPartial,
  Odds,
  LikelyOctaveBelow,
  LikelyOctaveAbove,
  LikelyFarBelow,
  LikelyFarAbove,
  LikelyPolyphony,
  LoudestCompany,
  LikelyChord,
  Texture,
  LikelyBefore,
  LikelyBeside,
  StrengthAbove,
  StrengthBelow,
  LikelyLouder,
  Count
};

/// A weight of the product of two features.
template <class Feature>
struct Term {
  Feature first;
  Feature second;
  double weight;
};

/// Where a feature lay in nearly all of what the weights were fitted on. Values beyond are taken as
/// the nearest of these: squares know nothing of what lies outside.
struct Range {
  double least;
  double most;
};
std::span<const Range> rangesOf(NoteFeature);

/// The terms whose sum is the logarithm of the odds that a candidate is a note: of any candidate by
/// itself, of any candidate in its company. Fitted by logistic regression (L2 3.0)
/// on rendered notes of seven sampled and six computed guitars: as they are, and, counting
/// 0.4-fold, in rooms, with bodies, strings that ring along, noise and strokes of all strengths,
/// and on clicks, drums, noise and speech without a note. A candidate counts 0.6 + its seconds, at
/// most 2, and its target is the share of it that overlaps true notes of its pitch.
/// docs/detection.md has the figures.
std::span<const Term<NoteFeature>> noteTerms();
std::span<const Term<NoteFeature>> companyTerms();

}  // namespace korvel::precise
