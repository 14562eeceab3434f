// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/Triplets.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr int kHalf = 2 * kUnitsOfQuarter;
/// A sign in triplets, and the places where it may begin: multiples of this many units.
struct TripletValue {
  NoteValue value;
  int grid;
};
constexpr TripletValue kTripletValues[] = {
    {{32, "half", false}, 16}, {{16, "quarter", false}, 8}, {{12, "eighth", true}, 4},
    {{8, "eighth", false}, 4}, {{6, "16th", true}, 2},      {{4, "16th", false}, 2},
    {{3, "32nd", true}, 1},    {{2, "32nd", false}, 1},     {{1, "64th", false}, 1}};

/// Looks at a voice of one bar.
class TripletSearch {
 public:
  explicit TripletSearch(const std::set<int>& cuts) : m_cuts(cuts) {}

  /// Two beats that have a cut in thirds of both together, none in the middle.
  bool isOfQuarters(int from) const {
    const auto thirds = inside(from, from + kHalf);
    return !thirds.empty() && std::ranges::all_of(thirds, [](int cut) { return cut % 16 == 0; });
  }

  void add(int from, int to) { m_found.push_back({from, to}); }

  /// A beat, or a part of one: three, or two halves, each of which may be three again.
  void search(int from, int to) {
    const int length = to - from;
    const auto cuts = inside(from, to);
    const auto areOn = [&](int grid) {
      return std::ranges::all_of(cuts, [&](int cut) { return cut % grid == 0; });
    };
    if (areOn(kUnitsOfThirtySecond)) return;
    if (length % 2 == 0 && !areOn(length / 3) && m_cuts.contains(from + length / 2)) {
      search(from, from + length / 2);
      search(from + length / 2, to);
    } else {
      add(from, to);
    }
  }

  std::vector<Triplet> take() { return std::move(m_found); }

 private:
  /// From the beginning of the stretch.
  std::vector<int> inside(int from, int to) const {
    std::vector<int> cuts;
    for (auto cut = m_cuts.upper_bound(from); cut != m_cuts.end() && *cut < to; ++cut)
      cuts.push_back(*cut - from);
    return cuts;
  }

  const std::set<int>& m_cuts;
  std::vector<Triplet> m_found;
};

}  // namespace

const char* Triplet::type() const {
  switch (to - from) {
    case kHalf:
      return "quarter";
    case kUnitsOfQuarter:
      return "eighth";
    case kUnitsOfEighth:
      return "16th";
    case kUnitsOfSixteenth:
      return "32nd";
    default:
      return "64th";
  }
}

std::vector<Triplet> tripletsOf(const Meter& meter, const std::set<int>& cuts) {
  TripletSearch search(cuts);
  int size = meter.isCompound() ? kUnitsOfEighth : kUnitsOfQuarter;
  for (int place = 0; place < meter.units();) {
    const int left = meter.units() - place;
    while (size > left && size > kUnitsOfThirtySecond) size /= 2;
    if (size == kUnitsOfQuarter && left >= kHalf && search.isOfQuarters(place)) {
      search.add(place, place + kHalf);
      place += kHalf;
    } else {
      search.search(place, place + size);
      place += size;
    }
  }
  return search.take();
}

const NoteValue& longestInTriplet(int place, int available) {
  const auto fits = [&](const TripletValue& each) {
    return each.value.units <= available && place % each.grid == 0;
  };
  return std::ranges::find_if(kTripletValues, fits)->value;  // the shortest one always does
}

}  // namespace korvel
