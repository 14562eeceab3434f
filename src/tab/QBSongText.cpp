// SPDX-License-Identifier: GPL-3.0-or-later
#include <fstream>
#include <stdexcept>

#include "model/QBChord.h"
#include "model/QBMeasure.h"
#include "model/QBSong.h"
#include "tab/LoopRange.h"
#include "tab/SongDrawing.h"
#include "tab/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kLoopRow = 9;

void openPage(QBTabMatrix& matrix, const QBSong& song) {
  matrix.newPage(song.title());
  matrix.openSystem(systemLabel());
}

void markLoop(QBTabMatrix& matrix) {
  matrix.horText(matrix.m_xPos, matrix.m_yPos + kLoopRow, "XX");
}

/// The first mark stands after its chord and asks only whether the position lies between the ends,
/// as intended: a loop that has just an end begins with the song.
void drawFirst(QBTabMatrix& matrix, QBChord& chord, const LoopRange& loop) {
  chord.addToTabulatureWithLineBreak(matrix, nullptr, 0, kWidthOfSystem);
  if (loop.contains(chord.position())) markLoop(matrix);
}

/// A mark stands where the chord begins, before a line break that the chord may cause.
void drawNext(QBTabMatrix& matrix, QBChord& chord, const QBChord* previous, int groupFlag,
              const LoopRange& loop) {
  if (loop.isSet() && loop.contains(chord.position())) markLoop(matrix);
  chord.addToTabulatureWithLineBreak(matrix, previous, groupFlag, kWidthOfSystem);
}

/// Throws std::out_of_range for a song without chords.
QBTabMatrix chordByChord(QBSong& song, const LoopRange& loop) {
  const auto& chords = song.allChords();
  if (chords.empty()) throw std::out_of_range("the song has no chords");
  QBTabMatrix matrix;
  openPage(matrix, song);
  drawFirst(matrix, *chords.front(), loop);
  int group = 0;
  const int last = static_cast<int>(chords.size()) - 1;
  for (int i = 0; i < last; ++i) {
    const bool startsGroup = i == group;
    if (startsGroup) group = i + song.lookupGroupSize(i);
    const auto at = static_cast<std::size_t>(i);
    drawNext(matrix, *chords[at + 1], chords[at], startsGroup ? 1 : 0, loop);
  }
  return matrix;
}

QBTabMatrix byMeasures(const QBSong& song, const QBSong* loopOf) {
  QBTabMatrix matrix;
  openPage(matrix, song);
  for (const auto& measure : song.allMeasures())
    measure->addToTabulatureWithLineBreak(loopOf, matrix);
  return matrix;
}

}  // namespace

QBTabMatrix drawingOf(QBSong& song) {
  return song.measures().empty() ? chordByChord(song, LoopRange(&song)) : byMeasures(song, &song);
}

std::string QBSong::toString() { return drawingOf(*this).toStringInverted(); }

std::string QBSong::toStringForExport() {
  QBTabMatrix matrix =
      measures().empty() ? chordByChord(*this, LoopRange()) : byMeasures(*this, nullptr);
  return matrix.toStringInverted();
}

std::string QBSong::toStringByMeasures() { return byMeasures(*this, this).toStringInverted(); }

// Answers true whatever becomes of the file, as intended: an export is one step of chains that go
// on without it.
bool QBSong::tofile(const std::string& path) {
  const std::string text = toStringForExport();
  std::ofstream(path, std::ios::binary) << text;
  return true;
}

}  // namespace korvel
