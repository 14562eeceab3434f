// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "export/shelf/QBMusicXMLTag.h"

namespace korvel {

/// A plain MusicXML 3.0 document of one guitar, built note by note: a measure is opened, notes are
/// put into it, a tone is put on each note. The tag itself is the XML declaration.
///
/// Durations are in sixteenths, strings count from 0 for the lowest. Its simplicity is kept for
/// those who read it: sharps only, one tuning for all songs, no half notes. `ScoreWriter` writes
/// what other programs are to understand.
class QBMusicXML final : public QBMusicXMLTag {
 public:
  explicit QBMusicXML(std::string file);

  QBMusicXMLTag& root() const { return *m_root; }
  QBMusicXMLTag& part() const { return *m_part; }
  /// The measure that notes are put into; none before the first was added.
  QBMusicXMLTag* messure() const { return m_messure; }
  const std::string& file() const { return m_file; }

  /// Opens the next measure. std::domain_error for a beat type of 0.
  QBMusicXMLTag& addMeasure(int beats, int beattype);
  static QBMusicXMLTag& addTuning(QBMusicXMLTag& staffDetails, int line, const std::string& step,
                                  int octave);
  // Notes of the measure at hand; std::logic_error before the first one.
  QBMusicXMLTag& addNote(int voice, int duration);
  QBMusicXMLTag& addNoteAsChord(int voice, int duration);
  QBMusicXMLTag& addNoteAsRest(int voice, int duration);
  static QBMusicXMLTag& addNotations(QBMusicXMLTag& note);
  /// Pitch and place on the neck, in the selected tuning.
  static void addTone(QBMusicXMLTag& note, QBMusicXMLTag& notations, int string, int fret);
  static void addTabulature(QBMusicXMLTag& notations, int string, int fret);

  /// "16th", "eighth", "quarter", "whole"; "undef" beyond 1 to 16.
  static std::string computeTypeByDuration(int duration);
  static int computeOctave(int string, int fret);

  /// The score alone, without the declaration.
  std::string toString() const;
  /// Writes the whole document, all of it or nothing; false when that fails.
  bool toFile(const std::string& path) const;

 private:
  std::string m_file;
  QBMusicXMLTag* m_root = nullptr;
  QBMusicXMLTag* m_part = nullptr;
  int m_position = 1;
  QBMusicXMLTag* m_messure = nullptr;
};

}  // namespace korvel
