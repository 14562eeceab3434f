// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <optional>
#include <vector>

#include "tab/layout/LoopRange.h"
#include "ui/roll/RollNotes.h"
#include "ui/roll/RollScale.h"
#include "ui/views/Shades.h"
#include "workflow/editing/drawn/ToneIndex.h"

class QPainter;

namespace korvel::ui {

class SoundBackdrop;

/// Paints a roll: lanes, the recording behind them, ruler, tones, and what is marked of it.
class RollPainter {
 public:
  /// What the roll shows beside its tones. Chords are indexes, -1 is none.
  struct Marks {
    ChordSpan loop;
    int playing = -1;
    int cursor = -1;
    bool focused = false;
    std::optional<double> dragged{};  ///< Where the line of a beat is dragged to.
    std::vector<ToneIndex> chosen{};
    std::vector<QRectF> drawn{};  ///< Where tones would be that are drawn or dragged.
    QRectF band{};                ///< That chooses tones.
    QRectF spot{};                ///< Of the tone or candidate that keys have gone to.
  };

  /// What is handed in has to stay.
  RollPainter(const ToneRoll& roll, const RollNotes& notes, const RollScale& scale,
              SoundBackdrop& backdrop, const QPalette& palette, const QFont& font);

  /// Such as "C#4".
  static QString nameOf(int pitch);

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
  void paintMarks(QPainter& painter, const Marks& marks) const;
  void paintColumn(QPainter& painter, const QColor& ink, const QPen& frame, int chord) const;
  void paintGesture(QPainter& painter, const Marks& marks) const;
  void paintPitches(QPainter& painter) const;
  double roomOfLabel() const;

  const ToneRoll& m_roll;
  const RollNotes& m_notes;
  const RollScale& m_scale;
  SoundBackdrop& m_backdrop;
  const Shades m_shades;
  const QFont m_font;
};

}  // namespace korvel::ui
