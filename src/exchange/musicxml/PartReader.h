// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "exchange/WrittenScore.h"
#include "exchange/musicxml/ScoreSigns.h"
#include "exchange/musicxml/TabStaves.h"
#include "platform/text/XmlDocument.h"

namespace korvel::exchange {

/// MIDI numbers by the ids of instruments that have no pitch.
using DrumPitches = std::map<std::string, int, std::less<>>;

/// Reads the measures of one part of a MusicXML score one after the other. What all parts have in
/// common, such as repeats and tempos, it adds to the score's bars.
class PartReader {
 public:
  using Element = platform::XmlDocument::Element;

  /// track: as the list of parts describes it. The score must outlive this.
  PartReader(WrittenScore& score, Track track, DrumPitches drums);

  /// measure: what holds its attributes; content: what holds its notes, in a partwise score the
  /// same. Throws a UserError that tells the line.
  void read(const Element& measure, const Element& content);
  /// To be called once, after the last measure.
  WrittenPart finish();

 private:
  void readAttributes(const Element& attributes);
  void readStaffDetails(const Element& details);
  void readTranspose(const Element& transpose);
  void readNote(const Element& note);
  StaffNote staffNote(const Element& note);
  void readPitch(const Element& pitch, StaffNote& note);
  void readUnpitched(const Element& note, const Element& unpitched, StaffNote& read);
  void readNotations(const Element& notations, StaffNote& note);
  void readTechnical(const Element& technical, StaffNote& note);
  void readHarmony(const Element& harmony);

  void leave(const char* what) { ++m_track.left[what]; }
  /// Grains of a number of divisions.
  std::int64_t grainsOf(double divisions) const;
  /// Grains from the bar line.
  std::int64_t now() const { return m_from + grainsOf(m_divisionsOn); }
  std::int64_t placeOf(const Element& element) const;
  /// In divisions; duration: the child of the element that says it.
  double durationOf(const Element& element, const Element& duration) const;
  void move(double divisions);

  WrittenScore& m_score;
  Track m_track;
  DrumPitches m_drums;
  ScoreSigns m_signs;
  std::map<int, TabStaff> m_staves{};
  /// Half tones from what is written to what sounds, by the staff; 0 is for all others.
  std::map<int, int> m_transpositions{};
  std::vector<StaffMeasure> m_measures{};
  double m_divisions = 1;    ///< Of a quarter.
  std::int64_t m_from = 0;   ///< From where in the measure divisions are counted.
  double m_divisionsOn = 0;  ///< How far it is from there.
  std::int64_t m_chordAt = 0;
  bool m_hasPitch = false;
  bool m_hasUnpitched = false;
};

}  // namespace korvel::exchange
