// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/grips/ChordShapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "fingering/grips/SeenShapes.h"

namespace korvel::fingering {
namespace {

constexpr int kFewestOfChord = 3;
constexpr double kStandardOfThree = 0.95;
constexpr double kStandardOfMore = 0.83;
constexpr double kPerLogOfTimes = 0.80;
/// What everybody learns first, the players of the annotations had little use for: each taught
/// chord with open strings counts as seen so often at least.
constexpr int kTimesOfFirstChords = 10;

/// Chords as they are taught, movable ones with their lowest fret at 1. What is left of one on
/// three strings or more is as good.
constexpr std::string_view kTaught =
    "133211 133111 131211 131111 1x221x 1x121x 1x111x 2x221x 2x131x 2x132x 133311 133xxx 1x1233 "
    "1x123x 1x2213 x21222 x2122x x3133x x13331 x13321 x13131 x13121 x13231 x1212x x2313x x13333 "
    "x13341 x13311 x133xx x43121 x4342x xx1343 xx1342 xx1323 xx1322 xx1333 xx1212 xx1222 xx2413 "
    "xx2212 xx2213 022100 022000 020100 020000 022030 x02220 x02210 x02020 x02010 x02120 xx0232 "
    "xx0231 xx0212 xx0222 xx0233 xx0211 x32010 x32000 x32030 x32310 320003 320033 320001 x21202 "
    "xx3211 xx3210 x24432 200232 x02230 x02200 022200 x35543";

using Frets = std::array<std::int8_t, kStrings>;
/// Frets of all strings in one number.
using Key = std::uint64_t;

/// With the lowest fret at 1 where no string is open.
Key keyOf(const Frets& frets) {
  int lowest = std::numeric_limits<std::int8_t>::max();
  for (const std::int8_t fret : frets)
    if (fret != Grip::kNone) lowest = std::min<int>(lowest, fret);
  const int shift = std::max(0, lowest - 1);
  Key key = 0;
  for (const std::int8_t fret : frets)
    key = key << 8U | static_cast<Key>(fret == Grip::kNone ? 0xff : fret - shift);
  return key;
}

Frets read(std::string_view shape) {
  Frets frets{};
  for (std::size_t s = 0; s < frets.size(); ++s)
    frets[s] = static_cast<std::int8_t>(shape[s] == 'x' ? Grip::kNone : shape[s] - '0');
  return frets;
}

int played(const Frets& frets) {
  return static_cast<int>(kStrings - std::ranges::count(frets, Grip::kNone));
}

/// What is left of a shape on every choice of its strings.
void addParts(const Frets& whole, std::unordered_set<Key>& shapes) {
  for (unsigned strings = 1; strings < 1U << kStrings; ++strings) {
    Frets part = whole;
    for (std::size_t s = 0; s < part.size(); ++s)
      if ((strings >> s & 1U) == 0) part[s] = Grip::kNone;
    if (played(part) >= kFewestOfChord) shapes.insert(keyOf(part));
  }
}

std::unordered_set<Key> taughtShapes() {
  std::unordered_set<Key> shapes;
  for (std::size_t at = 0; at < kTaught.size(); at += kStrings + 1)
    addParts(read(kTaught.substr(at, kStrings)), shapes);
  return shapes;
}

std::unordered_map<Key, double> seenShapes() {
  std::unordered_map<Key, double> shapes;
  for (const SeenShape& seen : kSeenShapes)
    shapes[keyOf(read(seen.frets))] = kPerLogOfTimes * std::log1p(seen.times);
  for (std::size_t at = 0; at < kTaught.size(); at += kStrings + 1) {
    const std::string_view taught = kTaught.substr(at, kStrings);
    if (taught.find('0') == std::string_view::npos) continue;
    double& score = shapes[keyOf(read(taught))];
    score = std::max(score, kPerLogOfTimes * std::log1p(kTimesOfFirstChords));
  }
  return shapes;
}

}  // namespace

double familiarity(const Grip& grip) {
  // Never destroyed: another thread may still listen while the program ends.
  static const auto& taught = *new std::unordered_set<Key>(taughtShapes());
  static const auto& seen = *new std::unordered_map<Key, double>(seenShapes());
  if (grip.played < kFewestOfChord) return 0;
  const Key key = keyOf(grip.fret);
  double sum = 0;
  if (taught.contains(key))
    sum += grip.played == kFewestOfChord ? kStandardOfThree : kStandardOfMore;
  if (const auto found = seen.find(key); found != seen.end()) sum += found->second;
  return sum;
}

}  // namespace korvel::fingering
