// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/harmony/KeyFinder.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "rhythm/harmony/ChordTones.h"

namespace korvel::rhythm {
namespace {

using Profile = std::array<double, kPitchClasses>;

/// How often each step above the tonic is used: Albrecht and Shanahan, "The use of large corpora to
/// train a new type of key-finding algorithm", Music Perception 31 (2013).
constexpr Profile kMajor{.238, .006, .111, .006, .137, .094, .016, .214, .009, .080, .008, .081};
constexpr Profile kMinor{.220, .006, .104, .123, .019, .103, .012, .214, .062, .022, .061, .052};
/// What speaks for a key beside that, in the same measure.
constexpr double kFirstChord = 0.18;
constexpr double kLastChord = 0.06;
constexpr double kFirstBass = 0.06;
constexpr double kLastBass = 0.03;
/// The profile of minor keys is flatter, so that it is like the notes of many a major piece.
constexpr double kMinorIsFlatter = 0.08;

Profile used(std::span<const fingering::Note> notes) {
  Profile sums{};
  const bool haveStrings = areFingered(notes);
  for (const fingering::Note& note : notes) {
    if (haveStrings && note.string < 0) continue;
    const double length = std::clamp(note.end - note.onset, 0.0, 1.0);
    const auto tone =
        static_cast<std::size_t>((note.pitch % kPitchClasses + kPitchClasses) % kPitchClasses);
    sums[tone] += std::sqrt(length) * static_cast<double>(note.probability);
  }
  return sums;
}

double correlation(const Profile& sums, const Profile& profile, std::size_t tonic) {
  double meanA = 0, meanB = 0, both = 0, squaresA = 0, squaresB = 0;
  for (std::size_t i = 0; i < kPitchClasses; ++i) {
    meanA += sums[i] / kPitchClasses;
    meanB += profile[i] / kPitchClasses;
  }
  for (std::size_t i = 0; i < kPitchClasses; ++i) {
    const double a = sums[(i + tonic) % kPitchClasses] - meanA, b = profile[i] - meanB;
    both += a * b;
    squaresA += a * a;
    squaresB += b * b;
  }
  return squaresA > 0 ? both / std::sqrt(squaresA * squaresB) : 0;
}

bool isTonic(const ChordSpan& chord, const Key& key) {
  const bool minor = chord.quality == Quality::minor || chord.quality == Quality::minorSeventh;
  return chord.root == key.tonic && minor == key.minor;
}

bool sounds(const ChordSpan& chord) { return chord.root >= 0; }

/// The first and the last thing that is heard: its chord, and the pitch class of its lowest note.
class Ends {
 public:
  Ends(std::span<const fingering::Note> notes, std::span<const ChordSpan> chords)
      : m_firstBass(bassNear(notes, notes.front().onset)),
        m_lastBass(bassNear(notes, notes.back().onset)) {
    const auto first = std::ranges::find_if(chords, sounds);
    if (first == chords.end()) return;
    m_first = *first;
    m_last = *std::find_if(chords.rbegin(), chords.rend(), sounds);
  }

  double speakFor(const Key& key) const {
    double sum = 0;
    if (m_first && isTonic(*m_first, key)) sum += kFirstChord;
    if (m_last && isTonic(*m_last, key)) sum += kLastChord;
    if (m_firstBass == key.tonic) sum += kFirstBass;
    if (m_lastBass == key.tonic) sum += kLastBass;
    return sum;
  }

 private:
  static int bassNear(std::span<const fingering::Note> notes, double time) {
    constexpr double kTogether = 0.1;  // seconds
    int lowest = notes.front().pitch;
    bool isFound = false;
    for (const fingering::Note& note : notes) {
      if (std::abs(note.onset - time) > kTogether) continue;
      lowest = isFound ? std::min(lowest, note.pitch) : note.pitch;
      isFound = true;
    }
    return (lowest % kPitchClasses + kPitchClasses) % kPitchClasses;
  }

  std::optional<ChordSpan> m_first, m_last;
  int m_firstBass, m_lastBass;
};

}  // namespace

std::optional<Key> keyOf(std::span<const fingering::Note> notes,
                         std::span<const ChordSpan> chords) {
  if (notes.empty()) return std::nullopt;
  const Profile sums = used(notes);
  const Ends ends(notes, chords);
  Key best;
  double most = -10;
  for (int i = 0; i < 2 * kPitchClasses; ++i) {
    const Key key{i % kPitchClasses, i >= kPitchClasses};
    const double score =
        correlation(sums, key.minor ? kMinor : kMajor, static_cast<std::size_t>(key.tonic)) -
        (key.minor ? kMinorIsFlatter : 0) + ends.speakFor(key);
    if (score <= most) continue;
    most = score;
    best = key;
  }
  return best;
}

}  // namespace korvel::rhythm
