// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/FinerKinds.h"

#include <algorithm>

#include "chords/judging/ChordScores.h"

namespace korvel::chords {
namespace {

// In the treble, then of the notes: tones that certainly sound, and thirds that hardly do.
constexpr float kSoundsClearly = 0.75F;
constexpr float kIsClearNote = 0.28F;
constexpr float kHardlySounds = 0.35F;
constexpr float kIsHardlyNote = 0.06F;
/// Of the bass tone's strength in the bass, the root has no more where the bass is another tone.
constexpr float kRootUnderBass = 0.83F;

constexpr int kFourth = 5;
constexpr int kFifth = 7;

using enum Kind;

class Finer {
 public:
  Finer(const AboveRoot& heard, bool fewThirds) : m_heard(heard), m_fewThirds(fewThirds) {}

  Kind of(Kind kind) const {
    switch (kind) {
      case major:
        return ofMajor();
      case minor:
        if (isPower()) return power;
        return isClear(9) ? minorSixth : minor;
      case seventh:
        if (isClear(9)) return thirteenth;
        if (isClear(kFourth)) return eleventh;
        return isClear(2) ? ninth : seventh;
      case minorSeventh:
        return isClear(2) ? minorNinth : minorSeventh;
      case majorSeventh:
        return isClear(2) ? majorNinth : majorSeventh;
      case diminished:
      case halfDiminished:
        return isClear(9) && m_heard.treble[9] > 2 * m_heard.treble[10] ? diminishedSeventh : kind;
      default:
        return kind;
    }
  }

 private:
  Kind ofMajor() const {
    if (lacksThird() && isClear(2)) return suspendedSecond;
    if (isPower()) return power;
    if (isClear(8) && m_heard.treble[kFifth] < kHardlySounds) return augmented;
    if (isClear(9)) return sixth;
    return isClear(2) ? addedNinth : major;
  }

  bool isClear(int step) const {
    const auto at = static_cast<std::size_t>(step);
    return m_heard.treble[at] > kSoundsClearly && m_heard.notes[at] > kIsClearNote;
  }
  bool lacksThird() const {
    return m_heard.thirds() < kHardlySounds && m_heard.thirdsOfNotes() < kIsHardlyNote;
  }
  bool isPower() const { return m_fewThirds && lacksThird(); }

  const AboveRoot& m_heard;
  bool m_fewThirds;
};

/// A tone of the chord, or its seventh, that is lower than the root for most of the time and with
/// which it begins: a walking bass passes many.
int bassOf(const Chord& chord, const AboveRoot& heard) {
  const auto step = std::ranges::max_element(heard.bass) - heard.bass.begin();
  const unsigned sevenths = 1U << 10 | 1U << 11;
  const bool belongs = ((chords::of(chord.kind).tones | sevenths) >> step & 1U) != 0;
  if (static_cast<std::size_t>(step) != heard.firstBass) return -1;
  if (step == 0 || !belongs || heard.bass[0] > kRootUnderBass) return -1;
  return static_cast<int>((static_cast<std::size_t>(chord.root) + static_cast<std::size_t>(step)) %
                          kClasses);
}

}  // namespace

float AboveRoot::thirds() const { return std::max(treble[3], treble[4]); }
float AboveRoot::thirdsOfNotes() const { return std::max(notes[3], notes[4]); }

AboveRoot aboveRoot(int root, std::span<const BeatEvidence> beats, const SearchWeights& weights) {
  AboveRoot heard;
  double seconds = 0;
  for (const BeatEvidence& beat : beats) {
    const Chroma treble = withoutPartials(beat.treble, weights);
    const auto length = static_cast<float>(beat.seconds);
    seconds += beat.seconds;
    for (std::size_t step = 0; step < kClasses; ++step) {
      const std::size_t at = (static_cast<std::size_t>(root) + step) % kClasses;
      heard.treble[step] += length * treble[at];
      heard.bass[step] += length * beat.bass[at];
      heard.notes[step] += length * beat.notes.weights[at];
    }
  }
  if (!beats.empty()) {
    const Chroma& first = beats.front().bass;
    const auto deepest = static_cast<std::size_t>(std::ranges::max_element(first) - first.begin());
    heard.firstBass = (deepest + kClasses - static_cast<std::size_t>(root)) % kClasses;
  }
  const float strongest = std::max({heard.treble[0], heard.treble[kFifth], 1e-6F});
  const float loudest = std::max(*std::ranges::max_element(heard.bass), 1e-6F);
  for (std::size_t step = 0; step < kClasses; ++step) {
    heard.treble[step] /= strongest;
    heard.bass[step] /= loudest;
    heard.notes[step] /= static_cast<float>(std::max(seconds, 1e-6));
  }
  return heard;
}

Chord finerChord(const Chord& chord, const AboveRoot& heard, bool fewThirds) {
  if (chord.isNone()) return chord;
  Chord result = chord;
  result.kind = Finer(heard, fewThirds).of(chord.kind);
  result.bass = bassOf(result, heard);
  if (result.kind != suspendedFourth || result.bass != (chord.root + kFourth) % 12) return result;
  // The same tones over their lowest one: a fourth and a fifth become a fifth and a second.
  return {result.bass, suspendedSecond};
}

}  // namespace korvel::chords
