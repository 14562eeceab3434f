// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/BarSigns.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "music/Ticks.h"

namespace korvel {
namespace {

constexpr int kFirstWithFlag = 8;
constexpr int kQuarterNote = 4;
constexpr int kTwoBeats = 2 * kTicksOfBeat;
constexpr int kHalfBeat = kTicksOfBeat / 2;
constexpr int kThirdOfTwoBeats = kTwoBeats / 3;

struct Value {
  int ticks;
  int value;
  bool isDotted;
};
constexpr std::array kBinaryValues = {Value{48, 1, false}, Value{36, 2, true},  Value{24, 2, false},
                                      Value{18, 4, true},  Value{12, 4, false}, Value{9, 8, true},
                                      Value{6, 8, false},  Value{3, 16, false}};
/// Of compound time and of triplets.
constexpr std::array kTernaryValues = {Value{48, 1, true},  Value{32, 1, false}, Value{24, 2, true},
                                       Value{16, 2, false}, Value{12, 4, true},  Value{8, 4, false},
                                       Value{6, 8, true},   Value{4, 8, false},  Value{3, 16, true},
                                       Value{2, 16, false}, Value{1, 32, false}};

int beatOf(int tick) { return tick / kTicksOfBeat; }

bool isOnBeat(int tick) { return tick % kTicksOfBeat == 0; }

class SignWriter {
 public:
  SignWriter(const std::vector<BarEvent>& events, int beat, int beattype, int first)
      : m_events(events),
        m_isCompound(isCompound(beat, beattype)),
        m_length(ticksOfBar(beat, beattype)),
        m_beats(m_length / kTicksOfBeat) {
    if (m_beats == 4 && isOnBeat(m_length)) m_middle = kTwoBeats;
    for (int tick = first; const BarEvent& event : events) {
      m_places.push_back(tick);
      tick += std::max(event.ticks, 0);
      m_end = tick;
    }
    if (!m_isCompound) findTriplets(beatOf(first));
  }

  std::vector<BarSign> write() {
    for (std::size_t i = 0; i < m_events.size(); ++i) {
      m_event = static_cast<int>(i);
      m_isFirst = true;
      const int from = m_places[i];
      const int to = from + std::max(m_events[i].ticks, 0);
      if (isRest() && from == 0 && to == m_length)
        add(from, to - from, {m_length, 1, false});
      else
        writeAround(from, to);
    }
    beam();
    return m_signs;
  }

 private:
  struct Triplet {
    int from;
    int to;
  };

  // Triplets.

  std::span<const int> placesWithin(int from, int to) const {
    const auto begin = std::ranges::upper_bound(m_places, from);
    return {begin, std::ranges::lower_bound(m_places, to)};
  }

  /// Three quarters in the time of two beats, or a beat in thirds.
  void findTriplets(int firstBeat) {
    const int beats = beatOf(m_end + kTicksOfBeat - 1);
    for (int beat = firstBeat; beat < beats; ++beat) {
      const int from = beat * kTicksOfBeat;
      if (isLargeTriplet(from)) {
        m_triplets.push_back({from, from + kTwoBeats});
        ++beat;
      } else if (isTriplet(from)) {
        m_triplets.push_back({from, from + kTicksOfBeat});
      }
    }
  }

  bool isTriplet(int from) const {
    const auto within = placesWithin(from, from + kTicksOfBeat);
    const auto isOff = [](int tick) { return tick % ticksOfSixteenth(false) != 0; };
    const bool endsWithin = m_end > from && m_end < from + kTicksOfBeat;
    return std::ranges::any_of(within, isOff) || (endsWithin && isOff(m_end));
  }

  bool isLargeTriplet(int from) const {
    const int to = from + kTwoBeats;
    if (to > m_end || (m_middle > 0 && from < m_middle && to > m_middle)) return false;
    const auto within = placesWithin(from, to);
    return !within.empty() && std::ranges::binary_search(m_places, from) &&
           std::ranges::all_of(within,
                               [&](int tick) { return (tick - from) % kThirdOfTwoBeats == 0; });
  }

  // Splitting.

  bool isRest() const {
    return m_events[static_cast<std::size_t>(m_event)].kind == BarEvent::Kind::rest;
  }

  bool isHeld() const {
    return m_events[static_cast<std::size_t>(m_event)].kind == BarEvent::Kind::held;
  }

  /// What lies in a triplet is written as such, the rest by beats.
  void writeAround(int from, int to) {
    for (std::size_t i = 0; i < m_triplets.size() && from < to; ++i) {
      const Triplet& triplet = m_triplets[i];
      if (triplet.to <= from) continue;
      if (triplet.from > from) writeByBeats(from, std::min(triplet.from, to));
      const int begin = std::max(from, triplet.from);
      const int end = std::min(to, triplet.to);
      if (begin < end) writeInTriplet(begin, end, static_cast<int>(i));
      from = std::max(begin, end);
    }
    if (from < to) writeByBeats(from, to);
  }

  void writeInTriplet(int from, int to, int triplet) {
    while (from < to) {
      const Value& value = largest(kTernaryValues, to - from);
      add(from, std::min(value.ticks, to - from), value);
      m_signs.back().triplet = triplet;
      from += value.ticks;
    }
  }

  void writeByBeats(int from, int to) {
    while (from < to) from += writeOne(from, to);
  }

  /// Writes what one sign can say of it from its beginning on: the ticks of that.
  int writeOne(int from, int to) {
    const auto whole = std::ranges::find(values(), to - from, &Value::ticks);
    if (whole != values().end() && mayBe(from, to)) return add(from, to - from, *whole);
    if (from < m_middle && to > m_middle) return writeOne(from, m_middle);
    const int nextBeat = (beatOf(from) + 1) * kTicksOfBeat;
    if (!isOnBeat(from) && to > nextBeat) return writeOne(from, nextBeat);
    for (const Value& value : values())
      if (value.ticks < to - from && mayBe(from, from + value.ticks))
        return add(from, value.ticks, value);
    return add(from, to - from, values().back());
  }

  /// Whether the beats of the bar still show where one sign lasts from there to there.
  bool mayBe(int from, int to) const {
    if (beatOf(from) == beatOf(to - 1)) return true;
    const int ticks = to - from;
    if (m_isCompound || isRest()) {
      if (!isOnBeat(from) || !isOnBeat(to)) return false;
      return m_beats % 2 == 0 ? ticks % kTwoBeats == 0 && from % ticks == 0 : !isRest();
    }
    if (from < m_middle && to > m_middle)
      return from == 0 || (from == kTicksOfBeat && ticks == kTwoBeats);
    if (isOnBeat(from)) return true;
    return from % kHalfBeat == 0 && to % kHalfBeat == 0 && ticks <= 3 * kHalfBeat;
  }

  std::span<const Value> values() const {
    if (m_isCompound) return kTernaryValues;
    return kBinaryValues;
  }

  static const Value& largest(std::span<const Value> values, int ticks) {
    const auto found =
        std::ranges::find_if(values, [ticks](const Value& value) { return value.ticks <= ticks; });
    return found == values.end() ? values.back() : *found;
  }

  int add(int from, int ticks, const Value& value) {
    const bool isTied = !isRest() && (!m_isFirst || isHeld());
    m_signs.push_back({m_event, from, ticks, value.value, value.isDotted, isRest(), isTied,
                       std::nullopt, std::nullopt});
    m_isFirst = false;
    return ticks;
  }

  // Beams.

  static bool canBeam(const BarSign& sign) { return !sign.isRest && sign.flags() > 0; }

  void beam() {
    int number = 0;
    for (std::size_t i = 0; i < m_signs.size();) {
      std::size_t end = i;
      while (end < m_signs.size() && canBeam(m_signs[end]) &&
             beatOf(m_signs[end].from) == beatOf(m_signs[i].from))
        ++end;
      if (end > i + 1) {
        for (std::size_t k = i; k < end; ++k) m_signs[k].beam = number;
        ++number;
      }
      i = std::max(end, i + 1);
    }
  }

  const std::vector<BarEvent>& m_events;
  bool m_isCompound;
  int m_length;
  int m_beats;
  int m_middle = 0;  ///< Of a bar of four beats, which long notes do not hide.
  int m_end = 0;
  std::vector<int> m_places;  ///< Where the events begin.
  std::vector<Triplet> m_triplets;
  int m_event = 0;
  bool m_isFirst = true;  ///< Of the signs of its event.
  std::vector<BarSign> m_signs;
};

}  // namespace

int BarSign::flags() const {
  if (value < kFirstWithFlag) return 0;
  return std::countr_zero(static_cast<unsigned>(value / kQuarterNote));
}

int sixteenthsOf(const BarSign& sign) {
  const int plain = std::max(kSixteenthsOfWhole / sign.value, 1);
  return sign.isDotted ? plain * 3 / 2 : plain;
}

std::vector<BarSign> signsOf(const std::vector<BarEvent>& events, int beat, int beattype,
                             int first) {
  return SignWriter(events, beat, beattype, first).write();
}

}  // namespace korvel
