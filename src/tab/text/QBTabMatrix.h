// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/loop/Slices.h"
#include "tab/text/QBTextMatrix.h"

namespace korvel {

class QBChord;

/// Columns that a system has at most where chords are drawn without measures.
inline constexpr int kWidthOfSystem = 102;
/// Rows from one system to the next.
inline constexpr int kRowsToNextSystem = 12;

/// Where a chord was drawn.
struct DrawnChord {
  const QBChord* chord;
  int x;        ///< Column of its frets.
  int y;        ///< Row of the top string.
  int columns;  ///< From x to the next chord.
};

/// The grid that a tablature is drawn on, with the place where the next chord goes. A system has,
/// counted from the row m_yPos of its top string line:
///
///     -1      chord names
///      0..5   the strings, the highest first
///      6..8   the note value of each chord
///      9      marks of the loop, or the beat ruler where the song has measures
///     10      marks of the loop where the song has measures
class QBTabMatrix : public QBTextMatrix {
 public:
  /// Starts a page with the program's name, the title and the capo, unless that is 0, and leaves
  /// m_yPos at its first system.
  void newPage(std::string_view title, int capo = 0);
  /// Starts a system whose strings have these names, the highest first. They stand in one column
  /// that is as wide as the widest of them.
  void openSystem(const std::vector<std::string>& names);
  void closeSystem();
  void closeMeasure();
  void addEmptyChord();
  void increaseXPosBy(int n) { m_xPos += n; }
  /// The six string lines of the current system in n columns from x on.
  void stringLines(int x, int n);

  /// Removes the blank rows at the top.
  void trimLeadingLines();
  /// The read-out of a song, top row first: trims the top, then every row in the full width of the
  /// grid, ended by LF.
  std::string toStringInverted();
  /// The same a little at a time, added to a text.
  platform::Slices reading(std::string& text);
  /// From the bottom row up, every row up to the column of the cursor and ended by CR LF.
  std::string toString() const override;

  int m_xPos = 2;      ///< Column of the next chord.
  int m_yPos = 1;      ///< Row of the current system's top string.
  int m_duration = 0;  ///< For callers; the layout does not read it.
  int m_page = 0;      ///< Pages opened so far.
  int m_capo = 0;      ///< Of the page: names are those of shapes behind it, too.
  // What was drawn, in that order. Unlike the places that chords keep, these are of this drawing.
  std::vector<DrawnChord> m_drawn;
  std::vector<int> m_systems;  ///< Rows of the systems' top strings, each once.

 private:
  void barLine(int x);
  int drawNames(const std::vector<std::string>& names);
  /// So many cells of a row from the left, blanks where there are none, and what ends the row.
  void addRow(std::string& text, int y, int columns, std::string_view end) const;
};

}  // namespace korvel
