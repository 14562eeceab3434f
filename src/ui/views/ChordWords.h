// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

namespace korvel {
class QBChord;
class QBMeasure;
class QBSong;
class QBTuning;
}  // namespace korvel

namespace korvel::ui {

/// Says in words what the views of a song draw: for screen readers, status bars and tool tips.
class ChordWords {
  Q_DECLARE_TR_FUNCTIONS(korvel::ui::ChordWords)

 public:
  /// Without a tuning the strings have numbers, 1 the highest.
  explicit ChordWords(QBTuning* tuning);

  /// Name of the open note, "" for a string that the tuning lacks.
  QString note(int string) const { return m_notes.value(string); }
  /// Name of the note at a fret; on a string that the tuning lacks as if that were a C.
  QString noteAt(int string, int fret) const;
  /// Such as "A string"; strings of the same note are told apart by their number.
  QString string(int string) const;
  /// Such as "Bar 3, chord 12 of 40, Am, A string, fret 2".
  QString place(QBSong& song, int chord, int string) const;
  /// Such as "Am: A string open, D string fret 2".
  QString grip(const QBChord& chord) const;

 private:
  static QString barWords(QBSong& song, const QBMeasure& bar);
  static QString tones(const QBChord& chord, int string);

  // From the lowest string up.
  QStringList m_notes;
  QList<int> m_pitchClasses;  ///< 0 for a string that the tuning lacks.
};

}  // namespace korvel::ui
