// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tab/layout/BeatLines.h"
#include "tab/layout/SongBars.h"
#include "tab/layout/TabSigns.h"
#include "tab/text/QBTabMatrix.h"

namespace korvel {

/// What stands around the bars.
struct BeatHeading {
  std::string title;
  double tempo;
  bool isSwung;
  std::vector<std::string> strings;  ///< Names, the highest string first.
  int capo = 0;
};

/// Draws a song on beats in systems of bars. The text of the matrix has all of it, in characters;
/// what stands below the strings there, and the time signatures, are the signs once more.
///
///     -1      names of chords where they change, before them the number of the first bar
///      0..5   the strings
///      6..8   note values, "r" for a rest; time signatures
///      9      "3" below triplets
///     10      "o" half and longer notes of a second voice, "|" shorter ones
class BeatDrawing {
 public:
  struct Place {
    int chord;  ///< Its index in the song.
    int x;
    int y;
    int columns;
    bool isSilent;
  };

  BeatDrawing(const SongBars& song, const BeatHeading& heading, int width);

  QBTabMatrix& matrix() { return m_matrix; }
  const std::vector<Place>& places() const { return m_places; }
  const TabSigns& signs() const { return m_signs; }

 private:
  /// A sign, in the order of the song.
  struct Placed {
    BeatLine::Cell cell;
    int system;
  };

  void drawTempo(const BeatHeading& heading);
  void drawLine(const BeatLine& line, const BeatHeading& heading);
  void drawPart(const BeatLine::Part& part);
  void drawTime(const SongBars::Bar& bar, int x);
  void drawChord(const SongBars::Event& event, int x);
  void drawNote(const BeatLine::Part& part, std::size_t cell);
  void drawLower(const BeatLine::Part& part);
  void widenPlaces(int end);
  void drawTones();
  void drawTie(const Placed& from, const Placed& to, int string);
  void drawRing(const SongBars::Ring& ring, std::size_t first);
  TabSigns::System& system() { return m_signs.systems.back(); }

  const SongBars& m_song;
  std::vector<Placed> m_placed;
  std::vector<TabSigns::Line> m_extents;  ///< Of each system: its first column and its end.
  QBTabMatrix m_matrix;
  std::vector<Place> m_places;
  TabSigns m_signs;
};

}  // namespace korvel
