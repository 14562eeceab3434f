// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/TabStaves.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

#include "music/Pitch.h"

namespace korvel::exchange {

namespace {

constexpr int kGuitarStrings = 6;
constexpr int kMostStrings = 12;
constexpr int kStandard[kGuitarStrings] = {40, 45, 50, 55, 59, 64};

bool hasPlace(const StaffNote& note) { return note.string > 0 && note.fret >= 0; }

/// Calls work(note) with all of them.
template <class Measures, class Work>
void forNotes(Measures& measures, const Work& work) {
  for (auto& measure : measures)
    for (auto& note : measure.notes) work(note);
}

/// How often each value is; the most frequent one.
int mostFrequent(const std::map<int, int>& counts) {
  return std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; })->first;
}

/// Of the staves of a part that one is the other's notes without frets.
class Doubles {
 public:
  Doubles(const std::vector<StaffMeasure>& measures, int fretted) : m_fretted(fretted) {
    for (const StaffMeasure& measure : measures) compare(measure);
  }

  bool has(int staff) const {
    const auto found = m_staves.find(staff);
    if (staff == m_fretted || found == m_staves.end()) return false;
    const Count& count = found->second;
    return !count.hasFrets && 2 * count.same >= count.all;
  }

 private:
  struct Count {
    int all = 0;
    int same = 0;
    bool hasFrets = false;
  };

  /// One may be written an octave higher.
  static std::pair<std::int64_t, int> placeOf(const StaffNote& each) {
    return {each.written.note.at, pitchClass(each.written.note.pitch)};
  }

  void compare(const StaffMeasure& measure) {
    std::set<std::pair<std::int64_t, int>> places;
    for (const StaffNote& each : measure.notes)
      if (each.staff == m_fretted) places.insert(placeOf(each));
    for (const StaffNote& each : measure.notes) {
      Count& count = m_staves[each.staff];
      ++count.all;
      count.same += places.contains(placeOf(each));
      count.hasFrets = count.hasFrets || hasPlace(each);
    }
  }

  int m_fretted;
  std::map<int, Count> m_staves{};
};

/// The staff with most frets; 0 where none has one.
int frettedStaff(const std::vector<StaffMeasure>& measures) {
  std::map<int, int> frets;
  forNotes(measures, [&](const StaffNote& note) { frets[note.staff] += hasPlace(note); });
  const int staff = frets.empty() ? 0 : mostFrequent(frets);
  return staff && frets[staff] > 0 ? staff : 0;
}

void dropDoubles(std::vector<StaffMeasure>& measures, int fretted) {
  bool isAlone = true;
  forNotes(measures, [&](const StaffNote& each) { isAlone = isAlone && each.staff == fretted; });
  if (isAlone) return;  // as in most files
  const Doubles doubles(measures, fretted);
  for (StaffMeasure& measure : measures)
    std::erase_if(measure.notes, [&](const StaffNote& each) { return doubles.has(each.staff); });
}

/// From the lowest string on; empty where a line is missing.
std::vector<int> openStrings(const TabStaff& staff) {
  std::vector<int> open;
  for (const auto& [line, pitch] : staff.tuning)
    if (line == static_cast<int>(open.size()) + 1) open.push_back(pitch);
  return open.size() == staff.tuning.size() ? open : std::vector<int>();
}

/// Puts the notes of a part onto the strings that its staff has.
class Neck {
 public:
  Neck(const TabStaff& staff, std::vector<StaffMeasure>& measures)
      : m_measures(measures), m_capo(staff.capo), m_open(openStrings(staff)) {
    const bool isNeck = staff.lines >= 4 && staff.lines <= kMostStrings;
    if (m_open.empty()) infer(isNeck ? staff.lines : kGuitarStrings);
  }

  std::vector<int> take() { return std::move(m_open); }

  /// Returns how many notes have lost their place.
  int place() {
    const int off = usualDifference();
    int lost = 0;
    forNotes(m_measures, [&](StaffNote& each) {
      Note& note = each.written.note;
      note.pitch -= off;
      if (!hasPlace(each)) return;
      if (isOnNeck(each) && difference(each) == 0) {
        note.string = stringOf(each);
        note.fret = each.fret;
      } else {
        ++lost;
      }
    });
    return lost;
  }

 private:
  int stringOf(const StaffNote& each) const {
    return static_cast<int>(m_open.size()) - each.string;
  }
  bool isOnNeck(const StaffNote& each) const {
    return hasPlace(each) && each.string <= static_cast<int>(m_open.size());
  }
  int difference(const StaffNote& each) const {
    const int open = m_open[static_cast<std::size_t>(stringOf(each))];
    return each.written.note.pitch - (open + m_capo + each.fret);
  }

  /// How much higher than their places the notes are written, such as an octave, most of them.
  /// Where the strings are written higher as well, it is they that are put right.
  int usualDifference() {
    std::map<int, int> differences;
    forNotes(m_measures, [&](const StaffNote& each) {
      if (isOnNeck(each)) ++differences[difference(each)];
    });
    const int off = differences.empty() ? 0 : mostFrequent(differences);
    if (off == 0 || off % kNotesPerOctave != 0) return off;
    const int lowest = m_open.front() - kStandard[0];
    if (std::abs(lowest + off) >= std::abs(lowest)) return off;
    for (int& open : m_open) open += off;
    return 0;
  }

  /// What the strings must sound so that the notes are where they are; those that none is on are
  /// as a guitar has them.
  void infer(int lines) {
    std::map<int, std::map<int, int>> heard;
    forNotes(m_measures, [&](const StaffNote& each) {
      if (hasPlace(each) && each.string <= lines)
        ++heard[lines - each.string][each.written.note.pitch - m_capo - each.fret];
    });
    for (int string = 0; string < lines; ++string) {
      const auto found = heard.find(string);
      if (found != heard.end())
        m_open.push_back(mostFrequent(found->second));
      else if (lines == kGuitarStrings)
        m_open.push_back(kStandard[string]);
      else
        return m_open.clear();
    }
  }

  std::vector<StaffMeasure>& m_measures;
  int m_capo;
  std::vector<int> m_open;
};

/// What an instrument without strings cannot play at all.
void dropUnplayable(std::vector<StaffMeasure>& measures, LeftCounts& left) {
  const auto drop = [&](const char* what, const auto& isLeft) {
    for (StaffMeasure& measure : measures)
      if (const auto count = std::erase_if(measure.notes, isLeft))
        left[what] += static_cast<int>(count);
  };
  drop("dead notes", [](const StaffNote& each) { return each.isDead; });
  drop("notes out of range", [](const StaffNote& each) {
    const int pitch = each.written.note.pitch;
    return pitch < 0 || pitch > kHighestNote;
  });
}

}  // namespace

WrittenPart partOf(Track track, const std::map<int, TabStaff>& staves,
                   std::vector<StaffMeasure> measures) {
  if (const int fretted = track.isDrums ? 0 : frettedStaff(measures)) {
    dropDoubles(measures, fretted);
    const auto found = staves.find(fretted);
    const TabStaff staff = found == staves.end() ? TabStaff() : found->second;
    Neck neck(staff, measures);
    if (const int lost = neck.place()) track.left["places on the neck"] += lost;
    track.open = neck.take();
    track.capo = staff.capo;
  } else {
    for (const auto& [number, staff] : staves)
      if (!staff.tuning.empty()) track.open = openStrings(staff), track.capo = staff.capo;
  }
  dropUnplayable(measures, track.left);
  WrittenPart part{std::move(track), {}};
  for (StaffMeasure& measure : measures) {
    WrittenMeasure& made = part.measures.emplace_back();
    made.names = std::move(measure.names);
    for (const StaffNote& each : measure.notes) made.notes.push_back(each.written);
  }
  return part;
}

}  // namespace korvel::exchange
