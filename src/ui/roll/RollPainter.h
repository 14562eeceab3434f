// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <optional>

#include "tab/layout/LoopRange.h"
#include "ui/roll/RollScale.h"
#include "ui/views/Shades.h"

class QPainter;

namespace korvel::ui {

/// Paints a roll: lanes, ruler, tones, and what is marked of it.
class RollPainter {
 public:
  /// What the roll shows beside its tones. Chords are indexes, -1 is none.
  struct Marks {
    ChordSpan loop;
    int playing = -1;
    int cursor = -1;
    bool focused = false;
    std::optional<double> dragged{};  ///< Where the line of a beat is dragged to.
  };

  /// What is handed in has to stay.
  RollPainter(const ToneRoll& roll, const RollScale& scale, const QPalette& palette,
              const QFont& font);

  /// All that lies in that part of the viewport.
  void paint(QPainter& painter, const QRect& part, const Marks& marks) const;

 private:
  // Of what is in the chords [first, end).
  void paintLanes(QPainter& painter) const;
  void paintLoop(QPainter& painter, const ChordSpan& loop) const;
  void paintBracket(QPainter& painter, double x, double inner) const;
  void paintRuler(QPainter& painter, int first, int end) const;
  void paintNumbers(QPainter& painter, int first, int end) const;
  void paintBars(QPainter& painter, int first, int end) const;
  void paintTick(QPainter& painter, int chord, int number) const;
  void paintBeats(QPainter& painter, int first, int end) const;
  void paintTones(QPainter& painter, int first, int end) const;
  void paintHead(QPainter& painter, const QRectF& head, bool active) const;
  void paintMarks(QPainter& painter, const Marks& marks) const;
  void paintColumn(QPainter& painter, const QColor& ink, const QPen& frame, int chord) const;
  void paintPitches(QPainter& painter) const;
  double roomOfLabel() const;

  const ToneRoll& m_roll;
  const RollScale& m_scale;
  const Shades m_shades;
  const QFont m_font;
};

}  // namespace korvel::ui
