// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/SongDrawing.h"

#include <fstream>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "tab/layout/CapoNames.h"
#include "tab/layout/LoopRange.h"
#include "tab/layout/SongBars.h"
#include "tab/text/BarText.h"
#include "tab/text/ChordText.h"
#include "tab/text/MeasureText.h"
#include "tab/text/NoChords.h"
#include "tab/text/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kLoopRowOfChords = 9;
constexpr int kNoteRow = 11;
constexpr int kColumnOfNote = 2;
constexpr const char* kNotWhole = "The recording was not heard to its end.";
/// Progress: the share of building a tablature that is spent on drawing; the rest is reading it
/// out.
constexpr double kShareOfDrawing = 0.8;

void openPage(QBTabMatrix& matrix, QBSong& song) {
  matrix.newPage(song.title(), capoOfTablature(song));
  matrix.openSystem(systemLabel(&song));
}

void markLoop(QBTabMatrix& matrix) {
  matrix.horText(matrix.m_xPos, matrix.m_yPos + kLoopRowOfChords, "XX");
}

/// The first mark stands after its chord and asks only whether the position lies between the ends,
/// as intended: a loop that has just an end begins with the song.
void drawFirst(QBTabMatrix& matrix, QBChord& chord, const LoopRange& loop, int width) {
  addToTabulatureWithLineBreak(chord, matrix, nullptr, 0, width);
  if (loop.contains(chord.position())) markLoop(matrix);
}

/// A mark stands where the chord begins, before a line break that the chord may cause.
void drawNext(QBTabMatrix& matrix, QBChord& chord, const QBChord* previous, int groupFlag,
              const LoopRange& loop, int width) {
  if (loop.isSet() && loop.contains(chord.position())) markLoop(matrix);
  addToTabulatureWithLineBreak(chord, matrix, previous, groupFlag, width);
}

/// Throws NoChords for a song without chords.
platform::Slices chordByChord(QBSong& song, LoopRange loop, QBTabMatrix& matrix,
                              int width = kWidthOfSystem) {
  const auto chords = song.allChords();
  if (chords.empty()) throw NoChords();
  openPage(matrix, song);
  drawFirst(matrix, *chords.front(), loop, width);
  int group = 0;
  const int last = static_cast<int>(chords.size()) - 1;
  for (int i = 0; i < last; ++i) {
    const bool startsGroup = i == group;
    if (startsGroup) group = i + song.lookupGroupSize(i);
    const auto at = static_cast<std::size_t>(i);
    drawNext(matrix, *chords[at + 1], chords[at], startsGroup ? 1 : 0, loop, width);
    co_yield static_cast<double>(i) / last;
  }
}

platform::Slices byMeasures(QBSong& song, const QBSong* loopOf, QBTabMatrix& matrix) {
  const auto measures = song.allMeasures();
  openPage(matrix, song);
  double done = 0;
  for (const auto& measure : measures) {
    addToTabulatureWithLineBreak(*measure, loopOf, matrix);
    co_yield ++done / static_cast<double>(measures.size());
  }
}

/// The same for a song on beats.
platform::Slices byBars(QBSong& song, const QBSong* loopOf, QBTabMatrix& matrix) {
  const SongBars written(song);
  openPage(matrix, song);
  double done = 0;
  for (const SongBars::Bar& bar : written.bars()) {
    addBar(bar, song, loopOf, matrix);
    co_yield ++done / static_cast<double>(written.bars().size());
  }
}

platform::Slices inMeasures(QBSong& song, const QBSong* loopOf, QBTabMatrix& matrix) {
  return song.isOnBeats() ? byBars(song, loopOf, matrix) : byMeasures(song, loopOf, matrix);
}

platform::Slices withEnd(platform::Slices work, const QBSong& song, QBTabMatrix& matrix) {
  while (work.next()) co_yield work.done();
  markEnd(matrix, song);
}

platform::Slices drawingInWidth(QBSong& song, QBTabMatrix& matrix, int width) {
  return withEnd(song.measures().empty() ? chordByChord(song, LoopRange(&song), matrix, width)
                                         : inMeasures(song, &song, matrix),
                 song, matrix);
}

platform::Slices drawing(QBSong& song, QBTabMatrix& matrix) {
  return drawingInWidth(song, matrix, kWidthOfSystem);
}

std::string drawn(platform::Slices (*draw)(QBSong&, QBTabMatrix&), QBSong& song) {
  QBTabMatrix matrix;
  draw(song, matrix).finish();
  return matrix.toStringInverted();
}

platform::Slices drawingForExport(QBSong& song, QBTabMatrix& matrix) {
  return withEnd(song.measures().empty() ? chordByChord(song, LoopRange(), matrix)
                                         : inMeasures(song, nullptr, matrix),
                 song, matrix);
}

platform::Slices drawingByMeasures(QBSong& song, QBTabMatrix& matrix) {
  return withEnd(inMeasures(song, &song, matrix), song, matrix);
}

}  // namespace

// So that nobody takes the end of what was heard for that of the music.
void markEnd(QBTabMatrix& matrix, const QBSong& song) {
  if (!song.isWhole()) matrix.horText(kColumnOfNote, matrix.m_yPos + kNoteRow, kNotWhole);
}

QBTabMatrix drawingOf(QBSong& song, int width) {
  QBTabMatrix matrix;
  drawingInWidth(song, matrix, width).finish();
  return matrix;
}

void buildTab(QBSong& song) { song.setTabulature(toString(song)); }

platform::Slices buildingTab(QBSong& song) {
  QBTabMatrix matrix;
  platform::Slices work = drawing(song, matrix);
  while (work.next()) co_yield work.done() * kShareOfDrawing;
  std::string text;
  work = matrix.reading(text);
  while (work.next()) co_yield kShareOfDrawing + work.done() * (1 - kShareOfDrawing);
  song.setTabulature(std::move(text));
}

std::string toString(QBSong& song) { return drawn(drawing, song); }

std::string toStringForExport(QBSong& song) { return drawn(drawingForExport, song); }

std::string toStringByMeasures(QBSong& song) { return drawn(drawingByMeasures, song); }

// Answers true whatever becomes of the file, as intended: an export is one step of chains that go
// on without it.
bool tofile(QBSong& song, const std::string& path) {
  const std::string text = toStringForExport(song);
  std::ofstream(path, std::ios::binary) << text;
  return true;
}

}  // namespace korvel
