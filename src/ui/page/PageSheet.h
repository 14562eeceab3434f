// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QFont>
#include <QString>
#include <vector>

#include "tab/page/SongPage.h"
#include "ui/page/PagePlaces.h"
#include "ui/page/laid/LaidPage.h"
#include "ui/views/Shades.h"

class QPainter;
class QPaintDevice;

namespace korvel::ui {

/// Where everything on a page of chords stands, on the screen or on paper, and draws it: its head,
/// grips, and bars in lines of four with their words below. Coordinates are those of `LaidPage`.
class PageSheet {
  Q_DECLARE_TR_FUNCTIONS(korvel::ui::PageSheet)

 public:
  using Chord = LaidPage::Chord;
  using Bar = LaidPage::Bar;
  using Grip = LaidPage::Grip;
  using Band = LaidPage::Band;
  enum class Parts {
    all,
    allWithRoomForWords,  ///< A line for words below each bar, whether it has some or not.
    grips,                ///< Only the head and the grips, large, with the other ways to hold them.
  };

  /// Nothing of no page.
  PageSheet() = default;
  /// width: of all of it. The device says how large the font's points are.
  PageSheet(const SongPage& page, const QFont& font, double width, Parts parts,
            const QPaintDevice* device = nullptr);

  double height() const { return m_laid.y; }
  double lineHeight() const { return m_line; }
  const std::vector<Chord>& chords() const { return m_laid.chords; }
  const std::vector<Bar>& bars() const { return m_laid.bars; }
  const std::vector<Grip>& grips() const { return m_laid.grips; }
  const std::vector<Band>& bands() const { return m_laid.bands; }
  /// A section that is only named, for what comes again.
  const std::vector<Bar>& letters() const { return m_laid.letters; }

  /// Null for what is not shown. Of a section that is only named all bars are its letter.
  const Bar* barOf(const PagePlaces::Place& place) const;
  const Chord* chordOf(const PagePlaces::Place& place) const;
  /// What is drawn at a point; null where it is nothing of that kind.
  const Bar* barUnder(const QPointF& point) const;
  const Chord* chordUnder(const QPointF& point) const;
  const Grip* gripUnder(const QPointF& point) const;
  /// In the lines above for -1, below for 1; null when there is none.
  const Chord* nearestByLines(const Chord& chord, int lines) const;

  /// The line below the page's title: key, capo, tempo, metre, and what a question mark means.
  static QString factsOf(const SongPage& page);

  /// What lies between two heights.
  void paint(QPainter& painter, const Shades& shades, double top, double bottom) const;

 private:
  void addHead(const SongPage& page, const PageFont& font, double width);
  void addSections(const SongPage& page, const PageFont& font, double width, Parts parts);
  void addName(const PageSection& section, int index, const PageFont& font, double width);
  void addLetter(const PageSection& section, const PageFont& font);

  LaidPage m_laid;
  double m_line = 1;  ///< Height of a line of the plain font.
};

}  // namespace korvel::ui
