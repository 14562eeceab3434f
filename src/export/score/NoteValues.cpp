// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/NoteValues.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr NoteValue kValues[] = {{24, "whole", true}, {16, "whole", false}, {12, "half", true},
                                 {8, "half", false},  {6, "quarter", true}, {4, "quarter", false},
                                 {3, "eighth", true}, {2, "eighth", false}, {1, "16th", false}};

constexpr int kQuarter = 4;
constexpr int kDottedQuarter = 6;

/// Whether a sign may begin at that place of a bar of quarters, in sixteenths: within a beat any
/// may, but longer ones keep to the eighths and the longest to the beats.
bool fitsQuarters(int sixteenths, int place) {
  switch (sixteenths) {
    case 24:
    case 16:
      return place == 0;
    case 12:
    case 8:
      return place % kQuarter == 0;
    case 6:
    case 4:
      return place % 2 == 0;
    default:
      return place % kQuarter + sixteenths <= kQuarter;
  }
}

/// The same for beats of three eighths, which no undotted sign crosses.
bool fitsDottedQuarters(int sixteenths, int place) {
  if (sixteenths == 16 || sixteenths == 8) return false;
  if (sixteenths == 24) return place == 0;
  if (sixteenths == 3) return place % 3 == 0;
  if (sixteenths >= kDottedQuarter) return place % kDottedQuarter == 0;
  return place % kDottedQuarter + sixteenths <= kDottedQuarter;
}

const NoteValue& longestAt(const Meter& meter, int place, int available) {
  const auto fits = [&](const NoteValue& value) {
    return value.sixteenths <= available &&
           (meter.isCompound() ? fitsDottedQuarters(value.sixteenths, place)
                               : fitsQuarters(value.sixteenths, place));
  };
  return *std::ranges::find_if(kValues, fits);  // a sixteenth always does
}

/// Fills bar after bar with the events of a passage.
class Passage {
 public:
  Passage(const Meter& meter, std::vector<WrittenBar>& bars)
      : m_meter(meter), m_length(meter.sixteenths()), m_bars(bars), m_place(m_length) {}

  void add(const ScoreEvent& event) {
    for (int left = event.duration; left > 0;) {
      if (m_place == m_length) openBar();
      const NoteValue& value = longestAt(m_meter, m_place, std::min(left, m_length - m_place));
      const bool first = left == event.duration;
      left -= value.sixteenths;
      m_place += value.sixteenths;
      m_bars.back().notes.push_back({&event, &value, first, left == 0});
    }
  }

  void fillWithRests() {
    static const ScoreEvent rest;
    while (m_place < m_length) {
      const NoteValue& value = longestAt(m_meter, m_place, m_length - m_place);
      m_place += value.sixteenths;
      m_bars.back().notes.push_back({&rest, &value, true, true});
    }
  }

  void openBar() {
    m_bars.push_back({m_meter, {}});
    m_place = 0;
  }

 private:
  Meter m_meter;
  int m_length;
  std::vector<WrittenBar>& m_bars;
  int m_place;  ///< In the last bar, in sixteenths.
};

}  // namespace

std::vector<WrittenBar> writtenBars(const Score& score) {
  std::vector<WrittenBar> bars;
  for (const ScoreBar& bar : score.bars) {
    Passage passage(bar.meter, bars);
    if (bar.events.empty()) passage.openBar();
    for (const ScoreEvent& event : bar.events) passage.add(event);
    passage.fillWithRests();
  }
  if (!bars.empty()) return bars;
  Passage silence(Meter(), bars);
  silence.openBar();
  silence.fillWithRests();
  return bars;
}

}  // namespace korvel
