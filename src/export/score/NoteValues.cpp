// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/NoteValues.h"

#include <algorithm>
#include <set>

#include "export/score/Triplets.h"

namespace korvel {
namespace {

constexpr NoteValue kValues[] = {
    {144, "whole", true},  {96, "whole", false},   {72, "half", true},   {48, "half", false},
    {36, "quarter", true}, {24, "quarter", false}, {18, "eighth", true}, {12, "eighth", false},
    {9, "16th", true},     {6, "16th", false},     {3, "32nd", false}};

constexpr int kDottedQuarter = 36;
constexpr int kDottedEighth = 18;
constexpr int kDottedSixteenth = 9;

/// Whether a sign may begin at that place of a bar of quarters, in units: within a beat most may,
/// but longer ones keep to the eighths and the longest to the beats.
bool fitsQuarters(int units, int place) {
  if (units >= 96) return place == 0;
  if (units >= 48) return place % kUnitsOfQuarter == 0;
  if (units >= kUnitsOfQuarter) return place % kUnitsOfEighth == 0;
  if (units == kDottedSixteenth) return place % kUnitsOfEighth + units <= kUnitsOfEighth;
  if (units > kDottedSixteenth && place % kUnitsOfSixteenth != 0) return false;
  return place % kUnitsOfQuarter + units <= kUnitsOfQuarter;
}

/// The same for beats of three eighths, which no undotted sign crosses.
bool fitsDottedQuarters(int units, int place) {
  if (units == 96 || units == 48) return false;
  if (units == 144) return place == 0;
  if (units == kDottedEighth) return place % kDottedEighth == 0;
  if (units == kDottedSixteenth) return place % kDottedSixteenth == 0;
  if (units >= kDottedQuarter) return place % kDottedQuarter == 0;
  if (units > kDottedSixteenth && place % kUnitsOfSixteenth != 0) return false;
  return place % kDottedQuarter + units <= kDottedQuarter;
}

const NoteValue& longestAt(const Meter& meter, int place, int available) {
  const auto fits = [&](const NoteValue& value) {
    return value.units <= available && (meter.isCompound() ? fitsDottedQuarters(value.units, place)
                                                           : fitsQuarters(value.units, place));
  };
  return *std::ranges::find_if(kValues, fits);  // a thirty-second always does
}

/// What a bar has of an event, from place to place.
struct Part {
  const ScoreEvent* event;
  int from;
  int to;
  bool first;
  bool last;
};

struct PartedBar {
  int from;  ///< Where it begins; not at 0 in a pick-up.
  std::vector<Part> parts;
};

/// Fills bar after bar with the events of a passage.
class Passage {
 public:
  Passage(int from, int length) : m_length(length), m_from(from), m_place(length) {}

  void add(const ScoreEvent& event) {
    for (int left = event.duration; left > 0;) {
      if (m_place == m_length) openBar();
      const int part = std::min(left, m_length - m_place);
      const bool first = left == event.duration;
      left -= part;
      m_bars.back().parts.push_back({&event, m_place, m_place + part, first, left == 0});
      m_place += part;
    }
  }

  /// To the end of the bar.
  std::vector<PartedBar> take() {
    static const ScoreEvent rest;
    if (m_bars.empty()) openBar();
    if (m_place < m_length) m_bars.back().parts.push_back({&rest, m_place, m_length, true, true});
    return std::move(m_bars);
  }

 private:
  void openBar() {
    m_bars.push_back({m_from, {}});
    m_place = m_from;
  }

  int m_length;
  int m_from;
  std::vector<PartedBar> m_bars;
  int m_place;  ///< In the last bar.
};

/// Writes one voice of a bar.
class SignWriter {
 public:
  SignWriter(const Meter& meter, const PartedBar& bar) : m_meter(meter), m_bar(bar) {
    std::set<int> cuts;
    for (const Part& part : bar.parts) cuts.insert({part.from, part.to});
    m_triplets = tripletsOf(meter, cuts);
    m_next = m_triplets.begin();
  }

  std::vector<ScoreNote> write() {
    for (const Part& part : m_bar.parts) write(part);
    return std::move(m_signs);
  }

 private:
  void write(const Part& part) {
    for (int place = part.from; place < part.to;) {
      while (m_next != m_triplets.end() && m_next->to <= place) ++m_next;
      const bool inTriplet = m_next != m_triplets.end() && m_next->from <= place;
      ScoreNote sign = inTriplet ? signInTriplet(place, part.to) : plainSign(place, part.to);
      sign.event = part.event;
      sign.first = part.first && place == part.from;
      place += sign.value->units;
      sign.last = part.last && place == part.to;
      m_signs.push_back(sign);
    }
  }

  ScoreNote plainSign(int place, int end) const {
    if (m_next != m_triplets.end()) end = std::min(end, m_next->from);
    return {nullptr, &longestAt(m_meter, place, end - place), false, false};
  }

  ScoreNote signInTriplet(int place, int end) const {
    const Triplet& triplet = *m_next;
    const NoteValue& value =
        longestInTriplet(place - triplet.from, std::min(end, triplet.to) - place);
    return {nullptr,
            &value,
            false,
            false,
            triplet.type(),
            place == std::max(triplet.from, m_bar.from),
            place + value.units == triplet.to};
  }

  const Meter& m_meter;
  const PartedBar& m_bar;
  std::vector<Triplet> m_triplets;
  std::vector<Triplet>::const_iterator m_next;
  std::vector<ScoreNote> m_signs;
};

std::vector<PartedBar> partsOf(const ScoreBar& bar, const std::vector<ScoreEvent>& events) {
  const int length = bar.meter.units();
  Passage passage(bar.pickUp ? length - bar.pickUp : 0, length);
  for (const ScoreEvent& event : events) passage.add(event);
  return passage.take();
}

void write(const ScoreBar& bar, std::vector<WrittenBar>& written) {
  const std::size_t first = written.size();
  for (const PartedBar& parted : partsOf(bar, bar.events))
    written.push_back({bar.meter, SignWriter(bar.meter, parted).write(), {}, bar.pickUp});
  written[first].tempo = bar.tempo;
  if (!bar.lower.empty())
    written[first].lower = SignWriter(bar.meter, partsOf(bar, bar.lower).front()).write();
}

}  // namespace

std::vector<WrittenBar> writtenBars(const Score& score) {
  static const ScoreBar silence;
  std::vector<WrittenBar> bars;
  for (const ScoreBar& bar : score.bars) write(bar, bars);
  if (bars.empty()) write(silence, bars);
  return bars;
}

}  // namespace korvel
