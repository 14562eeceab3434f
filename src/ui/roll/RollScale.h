// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QSize>
#include <optional>

#include "workflow/playing/ToneRoll.h"

class QFont;

namespace korvel::ui {

/// Where what a roll shows lies in its viewport: time to the right, pitch upwards, under a ruler
/// and beside the names of pitches. Everything is in coordinates of the viewport.
class RollScale {
 public:
  /// The roll may change, but has to stay.
  explicit RollScale(const ToneRoll& roll) : m_roll(roll) {}

  // What it depends on.
  void setFont(const QFont& font);
  void setViewport(const QSize& size) { m_viewport = size; }
  /// Of the width that a column has at first.
  void setZoom(double percent);
  /// Of what lies left of the viewport, in pixels.
  void setOffset(int pixels) { m_offset = pixels; }

  /// Of what lies between the ruler and the lanes, in pixels.
  void setWaveHeight(double pixels) { m_wave = pixels; }

  double line() const { return m_line; }    ///< Height of a line of text.
  double names() const { return m_names; }  ///< Width of the names of pitches.
  double step() const { return m_step; }    ///< Width of a column, on beats of a sixteenth.
  double height() const { return m_viewport.height(); }
  /// How wide the whole song is, with the names.
  int wholeWidth() const;
  /// The zoom at which it is as wide as the viewport.
  double zoomOfWhole() const;
  /// The zoom at which it can just be counted in pixels.
  double zoomOfPixels() const;
  int widthBesideNames() const { return m_viewport.width() - static_cast<int>(m_names); }

  // Time.
  /// Width of so many steps of the roll.
  double width(int steps) const { return steps * (m_step / m_roll.stepsOfColumn()); }
  /// Left edge of a step, and of a chord.
  double xOfStep(double step) const { return m_names + step * width(1) - m_offset; }
  double x(int chord) const { return xOfStep(m_roll.begin(chord)); }
  double columnWidth(int chord) const;
  double stepAt(double x) const { return (x - m_names + m_offset) / width(1); }
  int chordAt(double x) const;
  /// Where in the ruler a beat begins, of a song on beats; the nearest within a finger's reach.
  std::optional<int> beatNear(const QPointF& place) const;

  // Pitch.
  double rulerHeight() const;
  /// Between the ruler and the lanes; empty without anything to be shown there.
  QRectF wave() const;
  QRectF lanes() const;
  /// Lanes share the height of the view, but get no taller than looks well.
  double laneHeight() const;
  /// Upper edge of a pitch's lane; the tones stand in the middle of the view.
  double top(int pitch) const;
  /// What sounds as high as a place in the lanes: whole numbers in the middle of each.
  double pitchAt(double y) const;
  /// Whether lanes are so high that an outline leaves room for a shade.
  bool showsOutlines() const;

  // Tones and columns.
  QRectF headOf(const ToneRoll::Tone& tone) const;
  QRectF tailOf(const ToneRoll::Tone& tone) const;
  /// Empty for a chord that there is none of.
  QRect chordRect(int chord) const;

  /// How near to a line a press means it, in pixels.
  static constexpr double kReachOfLine = 4;

 private:
  const ToneRoll& m_roll;
  QSize m_viewport;
  double m_zoom = 100;
  double m_wave = 0;
  int m_offset = 0;
  double m_step = 16;
  double m_line = 16;
  double m_names = 32;
};

}  // namespace korvel::ui
