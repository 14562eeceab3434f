// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/BarText.h"

#include <algorithm>
#include <string>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "platform/text/Utf8.h"
#include "tab/layout/LoopRange.h"
#include "tab/text/ChordText.h"
#include "tab/text/NoteGlyphs.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kWidthOfBar = 142;
constexpr int kRowsToRestOfBar = 15;
constexpr int kRowOfStem = 6;
constexpr int kRowOfFlags = 8;
constexpr int kRowOfRuler = 9;
constexpr int kRowOfLoop = 10;
constexpr int kColumnsOfSixteenth = 2;
constexpr int kRoomAfterBeat = 4;
constexpr int kRoomAfterName = 2;

class BarWriter {
 public:
  BarWriter(const SongBars::Bar& bar, QBSong& song, QBTabMatrix& matrix)
      : m_bar(bar), m_song(song), m_matrix(matrix), m_signs(bar.signs()) {}

  void add(std::size_t index) {
    m_index = static_cast<int>(index);
    const SongBars::Event& event = m_bar.events[index];
    m_tick = m_bar.first + event.from - m_bar.events.front().from;
    const int sixteenths = sixteenthsAlone(m_tick, m_tick + event.ticks, compound());
    const std::string ruler =
        metricString(sixteenthAt(m_tick), sixteenths, m_bar.beat, m_bar.beattype, 0);
    const int columns = columnsOfEvent(event, sixteenths, ruler);
    if (columns + m_matrix.m_xPos >= kWidthOfBar) breakLine();
    draw(event, columns);
    drawSigns();
    m_matrix.horText(m_matrix.m_xPos + 1, m_matrix.m_yPos + kRowOfRuler, ruler);
    m_matrix.increaseXPosBy(columns);
  }

 private:
  bool compound() const { return isCompound(m_bar.beat, m_bar.beattype); }

  /// The sixteenth of the bar that is nearest.
  int sixteenthAt(int tick) const { return tick <= 0 ? 0 : sixteenthsAlone(0, tick, compound()); }

  int columnsOfEvent(const SongBars::Event& event, int sixteenths, const std::string& ruler) const {
    const bool endsBeat = (m_tick + event.ticks) % kTicksOfBeat == 0;
    const int name = static_cast<int>(platform::characterCount(event.name));
    return std::max({kColumnsOfSixteenth * sixteenths + 1 + (endsBeat ? kRoomAfterBeat : 0),
                     name > 0 ? name + kRoomAfterName : 0, static_cast<int>(ruler.size()) + 1});
  }

  void breakLine() {
    m_matrix.m_yPos += kRowsToRestOfBar;
    m_matrix.openSystem(systemLabel(&m_song));
  }

  void draw(const SongBars::Event& event, int columns) {
    QBChord& chord = *m_song.allChords()[static_cast<std::size_t>(event.chord)];
    chord.m_xPosInMatrix = m_matrix.m_xPos;
    chord.m_yPosInMatrix = m_matrix.m_yPos;
    m_matrix.m_drawn.push_back({&chord, m_matrix.m_xPos, m_matrix.m_yPos, columns});
    m_matrix.stringLines(m_matrix.m_xPos, columns);
    for (const SongBars::Fret& each : event.frets)
      m_matrix.horText(m_matrix.m_xPos, m_matrix.m_yPos + kStrings - 1 - each.string,
                       fretText(each.fret));
    m_matrix.horText(m_matrix.m_xPos, m_matrix.m_yPos - 1, event.name);
  }

  /// Each above its place on the ruler.
  void drawSigns() {
    for (const BarSign& sign : m_signs) {
      if (sign.event != m_index) continue;
      const int sixteenths = sixteenthAt(sign.from) - sixteenthAt(m_tick);
      const int x = m_matrix.m_xPos + 1 + kColumnsOfSixteenth * sixteenths;
      setMetric(m_matrix, x, m_matrix.m_yPos + kRowOfFlags, sixteenthsOf(sign));
      if (sign.isRest) m_matrix.setString(x, m_matrix.m_yPos + kRowOfStem, "r");
      if (sign.triplet) m_matrix.setString(x + 1, m_matrix.m_yPos + kRowOfFlags, "3");
    }
  }

  const SongBars::Bar& m_bar;
  QBSong& m_song;
  QBTabMatrix& m_matrix;
  std::vector<BarSign> m_signs;
  int m_index = 0;  ///< Of the event that is added.
  int m_tick = 0;   ///< Of the bar, where that begins.
};

}  // namespace

void addBar(const SongBars::Bar& bar, QBSong& song, const QBSong* loopOf, QBTabMatrix& matrix) {
  matrix.openSystem(systemLabel(&song));
  const LoopRange loop(loopOf);
  BarWriter writer(bar, song, matrix);
  for (std::size_t i = 0; i < bar.events.size(); ++i) {
    writer.add(i);
    const auto chord = static_cast<std::size_t>(bar.events[i].chord);
    if (loop.isSet() && loop.contains(song.allChords()[chord]->position()))
      matrix.horText(matrix.m_xPos, matrix.m_yPos + kRowOfLoop, "XX");
  }
  matrix.closeMeasure();
  matrix.m_xPos = 2;
  matrix.m_yPos += kRowsToNextSystem;
}

}  // namespace korvel
