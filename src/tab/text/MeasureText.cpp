// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/MeasureText.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "tab/layout/LoopRange.h"
#include "tab/text/ChordText.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kWidth = 142;
constexpr int kLoopRow = 10;

/// Follows the groups through a measure: the last chord of each is drawn with the group's size,
/// the others with 0.
class GroupSizes {
 public:
  explicit GroupSizes(const QBMeasure& measure) : m_measure(measure) {}

  int of(int index) {
    if (index == m_end - 1) return m_size;
    if (index == m_end) {
      m_size = m_measure.lookupGroupSize(index);
      m_end = index + m_size;
    }
    return 0;
  }

 private:
  const QBMeasure& m_measure;
  int m_end = 0;
  int m_size = 0;
};

}  // namespace

void addToTabulatureWithLineBreak(QBMeasure& measure, const QBSong* song, QBTabMatrix& matrix) {
  matrix.openSystem(systemLabel(measure.song()));
  const LoopRange loop(song);
  measure.m_counter = 0;
  GroupSizes sizes(measure);
  int index = 0;
  for (const auto& chord : measure.allChords()) {
    addToTabulatureWithMetric(*chord, matrix, nullptr, sizes.of(index++), kWidth, measure);
    if (loop.isSet() && loop.contains(chord->position()))
      matrix.horText(matrix.m_xPos, matrix.m_yPos + kLoopRow, "XX");
  }
  matrix.closeMeasure();
  matrix.m_xPos = 2;
  matrix.m_yPos += kRowsToNextSystem;
}

}  // namespace korvel
