// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordFinder.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "chords/judging/ChordScores.h"
#include "chords/judging/FinerKinds.h"
#include "chords/judging/KeyChordSearch.h"
#include "chords/judging/Repeats.h"

namespace korvel::chords {
namespace {

Chord chordAt(std::size_t state) {
  if (state == kNone) return {};
  return {static_cast<int>(state / kSearchedKinds), static_cast<Kind>(state % kSearchedKinds)};
}

bool isMinor(Kind kind) { return kind == Kind::minor || kind == Kind::minorSeventh; }

bool isTonic(const Chord& chord, std::size_t key) {
  const bool minor = static_cast<Mode>(key / kClasses) == Mode::minor;
  return chord.root == static_cast<int>(key % kClasses) && isMinor(chord.kind) == minor;
}

/// The key of the whole: the one to which most chords belong, those that begin and end it above
/// all. The search may change keys, and its keys are those of passages.
void tellKey(std::span<const InItsKey> path, std::span<const BeatEvidence> beats,
             const SearchWeights& weights, FoundChords& found) {
  const auto sounds = [](const FoundSpan& span) { return !span.chord.isNone(); };
  const auto first = std::ranges::find_if(found.spans, sounds);
  if (first == found.spans.end()) return;
  const auto last = std::find_if(found.spans.rbegin(), found.spans.rend(), sounds);
  std::array<double, kKeys> votes{};
  double seconds = 0;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const Chord chord = chordAt(path[i].chord);
    if (chord.isNone()) continue;
    seconds += beats[i].seconds;
    for (std::size_t key = 0; key < kKeys; ++key) {
      const auto degree = (chord.root + 12 - static_cast<int>(key % kClasses)) % 12;
      const Home home = homeOf(static_cast<Mode>(key / kClasses), degree, chord.kind);
      const double belongs = home == Home::own        ? 1
                             : home == Home::borrowed ? weights.keyBorrowed
                                                      : 0;
      votes[key] += beats[i].seconds * (belongs + (isTonic(chord, key) ? weights.keyTonic : 0));
    }
  }
  for (std::size_t key = 0; key < kKeys; ++key) {
    if (static_cast<Mode>(key / kClasses) == Mode::blues) votes[key] -= weights.keyBlues * seconds;
    if (isTonic(first->chord, key)) votes[key] += weights.keyFirst * seconds;
    if (isTonic(last->chord, key)) votes[key] += weights.keyLast * seconds;
  }
  const auto best = static_cast<std::size_t>(std::ranges::max_element(votes) - votes.begin());
  found.tonic = static_cast<int>(best % kClasses);
  found.mode = static_cast<Mode>(best / kClasses);
}

/// Power chords come in numbers: a single chord whose third is faint is a chord with a faint third.
/// A partial of the root sounds as a major third, so that minor ones have to lack theirs, too.
bool hasFewThirds(std::span<const FoundSpan> spans, std::span<const AboveRoot> heard) {
  constexpr double kFewThirds = 0.12, kFewOfNotes = 0.035, kFewMinorThirds = 0.045;
  double all = 0, thirds = 0, ofNotes = 0, minor = 0, minorThirds = 0;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const auto beats = static_cast<double>(spans[i].to - spans[i].from);
    if (spans[i].chord.isNone()) continue;
    all += beats;
    thirds += beats * static_cast<double>(heard[i].thirds());
    ofNotes += beats * static_cast<double>(heard[i].thirdsOfNotes());
    if (!isMinor(spans[i].chord.kind)) continue;
    minor += beats;
    minorThirds += beats * static_cast<double>(heard[i].treble[3]);
  }
  return all > 0 && thirds < kFewThirds * all && ofNotes < kFewOfNotes * all &&
         minorThirds <= kFewMinorThirds * minor;
}

/// Neighbours may be the same chord afterwards.
void nameFiner(std::span<const BeatEvidence> beats, const SearchWeights& weights,
               std::vector<FoundSpan>& spans) {
  std::vector<AboveRoot> heard;
  for (const FoundSpan& span : spans)
    heard.push_back(aboveRoot(std::max(span.chord.root, 0),
                              beats.subspan(span.from, span.to - span.from), weights));
  const bool fewThirds = hasFewThirds(spans, heard);
  std::vector<FoundSpan> result;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    FoundSpan span = spans[i];
    span.chord = finerChord(span.chord, heard[i], fewThirds);
    if (result.empty() || !(result.back().chord == span.chord)) {
      result.push_back(span);
      continue;
    }
    FoundSpan& last = result.back();
    const auto before = static_cast<double>(last.to - last.from);
    const auto more = static_cast<double>(span.to - span.from);
    last.probability = (last.probability * before + span.probability * more) / (before + more);
    last.to = span.to;
  }
  spans = std::move(result);
}

std::vector<ScoredBeat> scoresOf(std::span<const BeatEvidence> beats,
                                 const SearchWeights& weights) {
  const ChordScores judge(weights);
  std::vector<ScoredBeat> scored;
  for (const BeatEvidence& beat : beats)
    scored.push_back({judge.of(beat), beat.onBarLine ? weights.changeOnBarLine : weights.change});
  return scored;
}

/// How probable the chords are, on average over all the time, none counting nothing.
float surenessOf(std::span<const Scores> probable, std::span<const BeatEvidence> beats,
                 std::span<const std::size_t> chords) {
  double sum = 0, seconds = 0;
  for (std::size_t i = 0; i < beats.size(); ++i) {
    seconds += beats[i].seconds;
    if (chords[i] != kNone) sum += beats[i].seconds * static_cast<double>(probable[i][chords[i]]);
  }
  return seconds > 0 ? static_cast<float>(sum / seconds) : 0;
}

std::vector<std::size_t> mostProbable(std::span<const Scores> probable) {
  std::vector<std::size_t> chords;
  for (const Scores& beat : probable)
    chords.push_back(static_cast<std::size_t>(std::ranges::max_element(beat) - beat.begin()));
  return chords;
}

std::vector<std::size_t> chordsOf(std::span<const InItsKey> path) {
  std::vector<std::size_t> chords;
  for (const InItsKey& beat : path) chords.push_back(beat.chord);
  return chords;
}

/// In music what agrees with no chord is rather a chord that is hard to hear than none.
SearchWeights ofMusic(const SearchWeights& weights, float sureness) {
  const float music =
      std::clamp((sureness - weights.noMusic) / (weights.music - weights.noMusic), 0.0F, 1.0F);
  SearchWeights result = weights;
  result.none = std::lerp(weights.none, weights.noneOfMusic, music);
  result.noneOfDrums = weights.noneOfDrums + weights.none - result.none;
  return result;
}

}  // namespace

FoundChords findChords(std::span<const BeatEvidence> beats, const SearchWeights& weights) {
  const KeyChordPrices prices(weights);
  const auto probable = [&](std::span<const ScoredBeat> scored) {
    return probabilities(scored, prices, weights.keyChange, weights.trust);
  };
  const std::vector<Scores> first = probable(scoresOf(beats, weights));
  const float sureness = surenessOf(first, beats, mostProbable(first));
  std::vector<ScoredBeat> scored = scoresOf(beats, ofMusic(weights, sureness));
  scored = withRepeats(beats, scored, probable(scored), weights);
  std::vector<InItsKey> path = bestPath(scored, prices, weights.keyChange);
  FoundChords found;
  found.beats = probable(scored);
  if (surenessOf(found.beats, beats, chordsOf(path)) < weights.leastSure)
    for (InItsKey& beat : path) beat.chord = kNone;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (i == 0 || path[i].chord != path[i - 1].chord)
      found.spans.push_back({i, i, chordAt(path[i].chord)});
    FoundSpan& span = found.spans.back();
    const double before = span.probability * static_cast<double>(span.to - span.from);
    span.to = i + 1;
    span.probability = (before + static_cast<double>(found.beats[i][path[i].chord])) /
                       static_cast<double>(span.to - span.from);
  }
  tellKey(path, beats, weights, found);
  nameFiner(beats, weights, found.spans);
  return found;
}

}  // namespace korvel::chords
