// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/ChordText.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBTone.h"
#include "platform/text/Utf8.h"
#include "tab/layout/CapoNames.h"
#include "tab/text/NoteGlyphs.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kLowestStringRow = 5;
constexpr int kGlyphRow = 8;
constexpr int kRulerRow = 9;
constexpr int kPositionRow = 9;
constexpr int kFrameColumns = 8;
constexpr int kFretColumns = 2;
constexpr int kRoomBeforeGroup = 4;
constexpr int kRowsToNextSystemOfMeasure = 15;

bool isSilent(const QBChord& chord) { return !chord.hold() || chord.hold()->isEmpty(); }

bool isNamed(const QBChord& chord) { return chord.harmony() && !isSilent(chord); }

std::string nameBehind(const QBChord& chord, int capo) {
  return capo > 0 ? capoNameOf(chord, capo).text() : chord.fullHarmonyName();
}

int lengthOf(const std::string& text) { return static_cast<int>(platform::characterCount(text)); }

/// Starts a new system when so many columns would reach the width.
void breakLine(QBTabMatrix& matrix, const QBChord& chord, int columns, int width, int rows) {
  if (columns + matrix.m_xPos < width) return;
  matrix.m_xPos = 2;
  matrix.m_yPos += rows;
  matrix.openSystem(systemLabel(chord.song()));
}

void advance(QBTabMatrix& matrix, int columns) {
  matrix.stringLines(matrix.m_xPos + kFretColumns, columns);
  matrix.increaseXPosBy(columns);
}

void keepPlace(QBChord& chord, const QBTabMatrix& matrix) {
  chord.m_xPosInMatrix = matrix.m_xPos;
  chord.m_yPosInMatrix = matrix.m_yPos;
}

void recordPlace(QBTabMatrix& matrix, const QBChord& chord, int columns) {
  matrix.m_drawn.push_back({&chord, matrix.m_xPos, matrix.m_yPos, columns});
}

void drawFrame(QBTabMatrix& matrix, const QBChord& chord) {
  matrix.stringLines(matrix.m_xPos, kFrameColumns);
  setMetric(matrix, matrix.m_xPos + 1, matrix.m_yPos + kGlyphRow, chord.duration());
}

/// The later of two tones on one string stays visible, so they are drawn in a fixed order.
void drawTones(QBTabMatrix& matrix, QBChord& chord) {
  std::vector<const QBTone*> tones(chord.readAllTones().begin(), chord.readAllTones().end());
  std::ranges::sort(tones, {}, [](const QBTone* tone) {
    return std::tuple(tone->string(), tone->fret(), tone->amp());
  });
  for (const auto& tone : tones) {
    const int row = matrix.m_yPos + kLowestStringRow - tone->string();
    if (tone->isActive()) matrix.horText(matrix.m_xPos, row, fretText(tone->fret()));
  }
}

void drawContent(QBTabMatrix& matrix, QBChord& chord) {
  drawTones(matrix, chord);
  if (isNamed(chord)) addAsChord2(chord, matrix);
}

}  // namespace

std::string fretText(int fret) {
  std::string text(fret <= 9 ? "-" : "");
  return text.append(std::to_string(fret));
}

int outputLength(const QBChord& chord, int groupFlag, int capo) {
  const int name = isNamed(chord) ? lengthOf(nameBehind(chord, capo)) + 2 : 0;
  return std::max(2 * chord.duration() + 1, name) + (groupFlag >= 1 ? kRoomBeforeGroup : 0);
}

void addToTabulatureWithLineBreak(QBChord& chord, QBTabMatrix& matrix, const QBChord* /*previous*/,
                                  int groupFlag, int width) {
  if (isSilent(chord)) return;
  const int length = outputLength(chord, groupFlag, matrix.m_capo);
  breakLine(matrix, chord, length, width, kRowsToNextSystem);
  if (chord.m_xPosInMatrix == 0 && chord.m_yPosInMatrix == 0) keepPlace(chord, matrix);
  recordPlace(matrix, chord, length);
  drawFrame(matrix, chord);
  drawContent(matrix, chord);
  advance(matrix, length);
}

void addToTabulatureWithMetric(QBChord& chord, QBTabMatrix& matrix, const QBChord* /*previous*/,
                               int groupSize, int width, QBMeasure& measure) {
  if (isSilent(chord)) return;
  const int length = outputLength(chord, groupSize, matrix.m_capo);
  breakLine(matrix, chord, length, width, kRowsToNextSystemOfMeasure);
  keepPlace(chord, matrix);
  drawFrame(matrix, chord);
  const std::string ruler = metricString(measure.m_counter, chord.duration(), measure.beat(),
                                         measure.beattype(), groupSize);
  measure.m_counter += chord.duration();
  matrix.horText(matrix.m_xPos + 1, matrix.m_yPos + kRulerRow, ruler);
  drawContent(matrix, chord);
  const int columns = std::max(lengthOf(ruler), length);
  recordPlace(matrix, chord, columns);
  advance(matrix, columns);
}

void addAsChord(const QBChord& chord, QBTabMatrix& matrix) {
  const std::string name = chord.fullHarmonyName();
  matrix.horText(matrix.m_xPos, matrix.m_yPos - 2, name);
  matrix.increaseXPosBy(lengthOf(name) + 1);
}

void addAsChord2(const QBChord& chord, QBTabMatrix& matrix) {
  matrix.horText(matrix.m_xPos, matrix.m_yPos - 1, nameBehind(chord, matrix.m_capo));
}

void addPosition(const QBChord& chord, QBTabMatrix& matrix) {
  matrix.horText(matrix.m_xPos + 1, matrix.m_yPos + kPositionRow,
                 std::to_string(chord.position()) + ".");
}

std::string toString(QBChord& chord) {
  QBTabMatrix column;
  column.vertText(0, 0, "      ");
  for (const auto& tone : chord.readAllTones())
    column.setString(0, kLowestStringRow - tone->string(), std::to_string(tone->fret()));
  std::string text;
  for (int y = 0; y <= kLowestStringRow; ++y) text += std::string(*column.getString(0, y)) + "\n";
  return text;
}

}  // namespace korvel
