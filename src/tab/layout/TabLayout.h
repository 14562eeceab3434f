// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tab/layout/TabSigns.h"

namespace korvel {

class QBSong;
class QBTabMatrix;

/// Where the chords of a song stand in its text tablature: what a view needs to turn a place in the
/// text into a chord, and back. Chords are named by their index in the song's `allChords`, places
/// by column and row of the text, 0 at the top left. A song on beats has a text of its own here, in
/// systems of several bars, and signs of rhythm in which all its chords have a place.
///
/// Describes the song as it was when the layout was made. Holds no object of the song.
class TabLayout {
 public:
  struct Place {
    int chord;
    int x;                  ///< Column of the frets.
    int y;                  ///< Row of the top string.
    int columns;            ///< From x to the next chord.
    bool isSilent = false;  ///< A rest, or what only goes on, in a song on beats.
  };
  /// The rows [first, end) of a system, blank ones at its end left out.
  struct System {
    int first;
    int top;  ///< Row of the top string.
    int end;
  };

  /// The layout of no song.
  TabLayout() = default;
  explicit TabLayout(QBSong& song);
  /// The same with systems of another width, in columns, than the stored text has.
  TabLayout(QBSong& song, int width);
  /// What is printed: the layout of the text for export, which has no marks of the loop, or of a
  /// song on beats in the width of a page.
  static TabLayout forExport(QBSong& song);
  /// The layout of any text; no chords are in it.
  explicit TabLayout(const std::string& text) { readText(text); }
  /// One that was told another program, by what it consists of.
  TabLayout(std::vector<std::string> rows, std::vector<System> systems, std::vector<Place> places,
            TabSigns signs);

  /// Puts blank rows before each system, for what a view draws there. Once.
  void makeRoom(int rows);
  int room() const { return m_room; }
  /// Whether a row is one of those.
  bool isRoom(int row) const;

  /// The stored tablature, in rows of characters; drawn anew where it is older than the chords that
  /// it should show. All blanks at the ends of rows are left out.
  const std::vector<std::string>& rows() const { return m_rows; }
  /// How many columns the widest row has.
  int columns() const { return m_columns; }
  const std::vector<System>& systems() const { return m_systems; }
  /// Null for a row above the first system.
  const System* systemAt(int row) const;

  /// Of a song on beats; empty for others. Its systems are those of the layout.
  const TabSigns& signs() const { return m_signs; }

  int chords() const { return static_cast<int>(m_placeOfChord.size()); }
  /// The places of the chords that are drawn, in the order of the text.
  const std::vector<Place>& places() const { return m_places; }
  /// The places of a system.
  std::vector<Place>::const_iterator begin(const System& system) const;
  std::vector<Place>::const_iterator end(const System& system) const;
  /// Null for a chord that is silent, and so not drawn.
  const Place* placeOf(int chord) const;
  /// The place of a chord, or for a silent one the column where it would begin. None where nothing
  /// is drawn at all.
  std::optional<Place> nearPlace(int chord) const;
  std::optional<int> chordAt(int x, int y) const;
  /// Chord of the next place after, or before, the given one at which tones are drawn.
  std::optional<int> nextDrawn(int chord) const;
  std::optional<int> previousDrawn(int chord) const;

 private:
  bool hasTones(int chord) const;
  void readText(const std::string& text);
  void setRows(std::vector<std::string> rows);
  void drawOnBeats(QBSong& song, int width);
  void place(QBSong& song, const QBTabMatrix& matrix);
  void divide(const std::vector<int>& tops);

  std::vector<std::string> m_rows;
  int m_columns = 0;
  int m_room = 0;
  std::vector<System> m_systems;
  std::vector<Place> m_places;
  std::vector<int> m_placeOfChord;  ///< Index of its place, -1 without one.
  TabSigns m_signs;
};

/// The string that a row of a system shows, none for its other rows.
std::optional<int> stringAt(const TabLayout::System& system, int row);
/// Row of a string in a system whose top string is at `top`.
int rowOfString(int top, int string);

}  // namespace korvel
