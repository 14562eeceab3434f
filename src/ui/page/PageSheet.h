// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QFont>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <vector>

#include "tab/page/SongPage.h"
#include "ui/views/Shades.h"

class QPainter;
class QPaintDevice;

namespace korvel::ui {

/// Where everything on a page of chords stands, on the screen or on paper, and draws it: its head,
/// grips, and bars in lines of four with their words below. Coordinates are those of the device,
/// the page's top left corner at the origin.
class PageSheet {
  Q_DECLARE_TR_FUNCTIONS(korvel::ui::PageSheet)

 public:
  /// A chord of a bar. Numbers are indexes in the page.
  struct Chord {
    QRectF place;
    int section;
    int bar;
    int chord;
    bool isDoubtful;
  };
  struct Bar {
    QRectF place;
    int section;
    int bar;
    std::vector<QRectF> words;  ///< For each time that it is played, where there is a line for it.
  };
  struct Grip {
    QRectF place;
    int grip;
    int other = -1;  ///< Among its `others`; -1 for the one of the page.
  };
  /// What is not to be torn apart at the end of a sheet of paper.
  struct Band {
    double top;
    double bottom;
  };
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

  double height() const { return m_y; }
  double lineHeight() const { return m_line; }
  const std::vector<Chord>& chords() const { return m_chords; }
  const std::vector<Bar>& bars() const { return m_bars; }
  const std::vector<Grip>& grips() const { return m_grips; }
  const std::vector<Band>& bands() const { return m_bands; }
  /// A section that is only named, for what comes again.
  const std::vector<Bar>& letters() const { return m_letters; }

  /// The line below the page's title: key, capo, tempo, metre, and what a question mark means.
  static QString factsOf(const SongPage& page);

  /// What lies between two heights.
  void paint(QPainter& painter, const Shades& shades, double top, double bottom) const;

 private:
  enum class Role { title, artist, plain, faint, small, letter, chord, chordGoingOn, gripName };
  struct Text {
    QRectF place;
    QString words;
    Role role;
    double scale = 1;
    Qt::Alignment align = Qt::AlignLeft;
  };
  struct Picture {
    QRectF place;
    ChordShape shape;
  };
  struct Blot {
    QRectF place;
    bool isRound = false;
  };
  struct Line;
  struct Item;
  /// Where the counts of a bar stand.
  struct Row {
    double left;
    double right;
    double middle;
  };
  struct Room {
    double left;
    double right;
  };

  QFont fontOf(Role role, double scale = 1) const;
  double heightOf(Role role) const;
  double widthOf(Role role, const QString& words) const;
  QStringList linesOf(const QString& words, Role role, double width) const;
  void addText(const QRectF& place, const QString& words, Role role, double scale = 1,
               Qt::Alignment align = Qt::AlignLeft);
  void beginBand() { m_bands.push_back({m_y, m_y}); }
  void endBand() { m_bands.back().bottom = m_y; }

  void addHead();
  void addGrips(double height);
  void addOtherGrips();
  void addGrip(const QRectF& cell, const ChordShape& frets, const QString& name);
  QString titleOf(const PageGrip& grip) const;
  void addSection(int section);
  void addLetter(const PageSection& section, double height);
  void addLine(Line& line);
  std::vector<Item> itemsOf(const PageBar& bar) const;
  void fitWidths(Line& line) const;
  double neededBy(const PageBar& bar, int times) const;
  void addChords(const Line& line, std::size_t bar, const QRectF& place);
  void addPoints(const PageBar& bar, const QRectF& place, double from, double scale);
  void addPointsUntil(const PageBar& bar, double beat, double end, const Row& row, const Room& room,
                      double scale);
  void addWords(const Line& line, std::size_t bar, Bar& placed);
  void addBarLine(double x, double height, bool isHeavy);
  void addRepeat(double x, double height, bool opens);

  const SongPage* m_page = nullptr;  ///< While it is laid out.
  QFont m_font;
  double m_width = 0;
  Parts m_parts = Parts::all;
  const QPaintDevice* m_device = nullptr;
  double m_line = 1;  ///< Height of a line of the plain font.
  double m_y = 0;
  bool m_hasSounding = false;
  std::vector<Text> m_texts;
  std::vector<Picture> m_pictures;
  std::vector<Blot> m_blots;
  std::vector<Chord> m_chords;
  std::vector<Bar> m_bars;
  std::vector<Bar> m_letters;
  std::vector<Grip> m_grips;
  std::vector<Band> m_bands;
  bool m_leftHanded = false;
};

}  // namespace korvel::ui
