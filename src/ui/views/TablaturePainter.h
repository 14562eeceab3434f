// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include "tab/layout/LoopRange.h"
#include "tab/layout/TabLayout.h"
#include "tab/page/StaffGrips.h"
#include "ui/views/DoubtMarks.h"
#include "ui/views/Shades.h"
#include "ui/views/TabCanvas.h"

class QPainter;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// Paints a tablature on the screen: its rows, with silenced tones in parentheses, and which chords
/// play, are looped and are selected. For one painting; the text's top left corner is the painter's
/// origin.
class TablaturePainter {
 public:
  /// What is painted; it has to stay for as long as the painter. Of chords, -1 is none.
  struct Shown {
    const TabLayout& layout;
    QBSong* song;  ///< Has the silenced tones; null for a text that is no song's.
    ChordSpan loop;
    ChordSpan selection;
    int playing;
    const DoubtMarks& doubts;
    const std::vector<StaffGrip>& grips;  ///< Drawn in the room that the layout has.
    bool leftHanded;
  };

  TablaturePainter(const TabCanvas& canvas, const Shades& shades, const Shown& shown);

  /// What the rectangle touches.
  void paint(QPainter& painter, const QRectF& wanted) const;
  /// The cursor while keys go elsewhere.
  void frameCursor(QPainter& painter, const QRectF& cells) const;
  /// The cursor while it has the keys: what is at these cells, in other colours.
  void fillCursor(QPainter& painter, const QRectF& cells, const QFont& font) const;

 private:
  QString words(int row) const;
  void addInactiveTones(QString& words, const TabLayout::System& system, int row) const;
  void paintRuler(QPainter& painter, const TabLayout::System& system) const;
  void paintGround(QPainter& painter, const TabLayout::System& system) const;
  void paintMarks(QPainter& painter, const TabLayout::System& system) const;
  void paintDoubt(QPainter& painter, const TabLayout::System& system, const TabLayout::Place& place,
                  const DoubtMark& mark) const;
  void paintPlaying(QPainter& painter, const TabLayout::Place& place) const;
  void paintBracket(QPainter& painter, const TabLayout::Place& place, bool opening) const;

  const TabCanvas& m_canvas;
  const Shades m_shades;
  const Shown m_shown;
};

}  // namespace korvel::ui
