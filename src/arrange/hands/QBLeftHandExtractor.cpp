// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBLeftHandExtractor.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "model/book/QBLeftHandPattern.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {
namespace {

constexpr int kOffsets = 12;
constexpr int kFretBits = 32;  // more frets than any guitar has

/// Which frets of which string a hold stops, as bits: patterns are tried at every fret.
class Grip {
 public:
  explicit Grip(const QBHold& hold) {
    for (const QBTone* tone : hold.tones())
      if (isPlace(tone->string(), tone->fret())) row(tone->string()) |= 1U << tone->fret();
  }
  /// The frets of a string from one on, that one as bit 0; a negative one lies before the nut.
  std::uint32_t from(int string, int fret) const {
    if (fret <= -kFretBits || !isPlace(string, std::abs(fret))) return 0;
    const std::uint32_t frets = m_rows[static_cast<std::size_t>(string)];
    return fret < 0 ? frets << -fret : frets >> fret;
  }

 private:
  static bool isPlace(int string, int fret) {
    return string >= 0 && string < kStrings && fret >= 0 && fret < kFretBits;
  }
  std::uint32_t& row(int string) { return m_rows[static_cast<std::size_t>(string)]; }
  std::array<std::uint32_t, static_cast<std::size_t>(kStrings)> m_rows{};
};

/// A number of strings stopped at once, and the first offset along the neck that reaches it.
struct Peak {
  int count = 0;
  int offset = 0;
};

using Counts = std::array<int, kOffsets>;

Counts countAtOffsets(const QBLeftHandPattern& pattern, const Grip& grip) {
  Counts counts{};
  for (const QBString* finger : pattern.strings()) {
    std::uint32_t frets = grip.from(finger->order(), finger->baseTone());
    for (int& count : counts) {
      count += static_cast<int>(frets & 1U);
      frets >>= 1;
    }
  }
  return counts;
}

/// The largest count below a limit; none is a count of 0.
Peak largestBelow(int limit, const Counts& counts) {
  Peak peak;
  for (int offset = 0; offset < kOffsets; ++offset) {
    const int count = counts[static_cast<std::size_t>(offset)];
    if (count < limit && count > peak.count) peak = {count, offset};
  }
  return peak;
}

/// Three strings in one place leave no finger for another place farther than a fret away, and a
/// third place must not lie above the second one.
bool outOfReach(const Peak& first, const Peak& second, const Peak& third) {
  if (first.count >= 3 && second.count > 0 && std::abs(first.offset - second.offset) > 1)
    return true;
  return third.count >= 2 && third.offset > second.offset;
}

}  // namespace

QBLeftHandExtractor::QBLeftHandExtractor(QBSong* target)
    : m_target(target), m_patterns(QBTabMgr::db().lefthandpatterns()) {
  std::ranges::stable_sort(m_patterns, {}, [](const auto& pattern) { return pattern->order(); });
}

QBLeftHandExtractor::~QBLeftHandExtractor() = default;

QBSong* QBLeftHandExtractor::target() const { return m_target; }

QBLeftHandPattern* QBLeftHandExtractor::findPatternByChord(const QBChord& chord) const {
  QBLeftHandPattern* best = nullptr;
  float bestScore = -1.0F;
  for (const auto& pattern : m_patterns) {
    const float score = chord.hold() ? matches(*pattern, *chord.hold()) : 0.0F;
    if (score <= bestScore) continue;
    best = pattern;
    bestScore = score;
  }
  return best;
}

float QBLeftHandExtractor::matches(const QBLeftHandPattern& pattern, const QBHold& hold) {
  const auto tones = hold.tones().size();
  if (tones == 0) return 0.0F;
  const Counts counts = countAtOffsets(pattern, Grip(hold));
  const Peak first = largestBelow(kStrings + 1, counts);
  const Peak second = largestBelow(first.count, counts);
  const Peak third = largestBelow(second.count, counts);
  if (outOfReach(first, second, third)) return 0.0F;
  return static_cast<float>(first.count + second.count + third.count) / static_cast<float>(tones);
}

}  // namespace korvel
