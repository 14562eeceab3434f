// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

class QPaintDevice;

namespace korvel::ui {

/// The letters of a page of chords, by what they are for, in a font that the page is written in.
/// Lengths are those of the device that it is drawn on.
class PageFont {
 public:
  enum class Role { title, artist, plain, faint, small, letter, chord, chordGoingOn, gripName };

  /// plain: the font of plain letters. device: says how large the font's points are, and outlives
  /// this; the screen where there is none.
  explicit PageFont(const QFont& plain, const QPaintDevice* device = nullptr);

  /// scale: of the letters, against those that they are otherwise.
  QFont font(Role role, double scale = 1) const;

  /// Of a line of plain letters, by which everything on a page is spaced.
  double line() const { return m_line; }
  double height(Role role) const;
  double width(Role role, const QString& words) const;
  /// The words broken between each other into lines of that width, as far as they can be.
  QStringList linesOf(const QString& words, Role role, double room) const;

 private:
  QFont m_plain;
  const QPaintDevice* m_device = nullptr;
  double m_line = 1;
};

}  // namespace korvel::ui
