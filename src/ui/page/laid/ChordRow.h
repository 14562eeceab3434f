// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

#include "tab/page/SongPage.h"
#include "ui/page/laid/LaidPage.h"
#include "ui/page/laid/PageFont.h"

namespace korvel::ui {

/// The chords of one bar beside each other: their names, each where its beat is but for what others
/// need, what they sound like below them, and points for the counts on which they go on. What it is
/// made of outlives it.
class ChordRow {
 public:
  /// Where the row of a bar is laid.
  struct Place {
    QRectF names;  ///< The room of the names from bar line to bar line.
    double from;   ///< Where the first beat is.
    double scale;  ///< Of the letters.
    int section;   ///< Index in the page.
    int bar;       ///< Index in the section.
  };

  /// showsSounding: there is a line below the names for what they sound like.
  ChordRow(const PageBar& bar, const PageFont& font, bool showsSounding);

  /// What the row needs, unscaled, with the bar line before it and points of a repeat.
  double neededWidth() const;
  void addTo(LaidPage& laid, const Place& place) const;

 private:
  /// A name, or a time signature.
  struct Item {
    double beat;
    QString words;
    PageFont::Role role;
    int chord;  ///< Index in the bar; -1 for a time signature.
    double width = 0;
    double x = 0;
  };
  /// Where the counts of a bar stand.
  struct Counts {
    double left;
    double right;
    double middle;
  };
  struct Room {
    double left;
    double right;
  };

  std::vector<Item> placed(const Place& place) const;
  void addName(LaidPage& laid, const Item& item, const Place& place) const;
  void addPoints(LaidPage& laid, const Place& place) const;
  void addPointsUntil(LaidPage& laid, double beat, double end, const Counts& counts,
                      const Room& room, double scale) const;

  const PageBar& m_bar;
  const PageFont& m_font;
  bool m_showsSounding;
  std::vector<Item> m_items;  ///< By their beats, without a place.
};

}  // namespace korvel::ui
