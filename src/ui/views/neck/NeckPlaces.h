// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <optional>

class QFont;

namespace korvel::ui {

/// Where everything is on the picture of a neck, the highest string on top. Strings count from 0,
/// the lowest; fret 0 stands for the marks beyond the nut. Of a left-handed neck the picture is the
/// mirror image: what is not said to be as seen is on the neck of a right hand.
class NeckPlaces {
 public:
  /// The frets of the two necks that are drawn.
  static constexpr int kFretsOfShortNeck = 12;
  static constexpr int kFretsOfLongNeck = 24;
  // In heights of a line: of the row above the board, and of that below it.
  static constexpr double kHeading = 1.5;
  static constexpr double kNumbers = 1.4;

  struct Cell {
    int string;
    int fret;
  };

  /// font: that of its plain text, by whose lines it is spaced.
  NeckPlaces(const QFont& font, const QSizeF& size, int frets, bool leftHanded);

  /// Of a view in which a short neck looks well, and in which it can just be read.
  static QSize bestSize(const QFont& font);
  static QSize smallestSize(const QFont& font);

  int frets() const { return m_frets; }
  bool isMirrored() const { return m_isMirrored; }
  double width() const { return m_width; }      ///< Of the whole picture.
  double line() const { return m_line; }        ///< Height of a line of text.
  double names() const { return m_names; }      ///< Left edge of the names of the strings.
  double heading() const { return m_heading; }  ///< Top of the name of the chord.
  const QRectF& board() const { return m_board; }
  /// Between two strings.
  double spacing() const;
  /// Of the largest dots.
  double radius() const;
  double y(int string) const;
  /// Where the wire of a fret is.
  double wire(int fret) const;
  /// Middle of a fret, as seen.
  double x(int fret) const;
  /// As seen.
  QRectF cell(int string, int fret) const;
  /// What is seen at a place; none beside the neck.
  std::optional<Cell> cellAt(const QPointF& position) const;
  /// What is there on the neck of a right hand, as seen, or the other way round.
  double seen(double place) const;
  QRectF seen(const QRectF& rect) const;

 private:
  double m_width;
  double m_line;
  double m_heading;
  double m_names;
  double m_marks;  ///< Middle of the marks of open and silent strings.
  QRectF m_board;
  int m_frets;
  bool m_isMirrored;
};

/// The font in which strings and chords are named.
QFont boldOf(QFont font);

}  // namespace korvel::ui
