// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PagePapers.h"

#include <QPainter>

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

/// Points: to be read from a music stand.
constexpr double kFontOfPaper = 11;

QFont lettersOf(QFont font) {
  font.setPointSizeF(kFontOfPaper);
  return font;
}

class ChordPaper final : public PaperSheets {
 public:
  ChordPaper(const SongPage& page, const QFont& font, PageSheet::Parts parts,
             const QPaintDevice& device, double width)
      : m_sheet(page, lettersOf(font), width, parts, &device), m_width(width) {}

  /// A band that is higher than a sheet is torn all the same.
  std::vector<Sheet> cut(double height) const override {
    std::vector<Sheet> sheets;
    for (const PageSheet::Band& band : m_sheet.bands())
      if (sheets.empty() || band.bottom - sheets.back().top > height)
        sheets.push_back({band.top, band.bottom});
      else
        sheets.back().bottom = band.bottom;
    return sheets;
  }

  void draw(QPainter& painter, const Sheet& sheet) const override {
    painter.translate(0, -sheet.top);
    painter.setClipRect(QRectF(0, sheet.top, m_width, sheet.bottom - sheet.top));
    // What only touches the edge belongs to the sheet beside.
    m_sheet.paint(painter, Shades(blackOnWhite()), sheet.top + 1, sheet.bottom - 1);
  }

 private:
  const PageSheet m_sheet;
  const double m_width;
};

}  // namespace

PaperWork pageWork(const SongPage& page, const QFont& font, PageSheet::Parts parts) {
  return {toText(page.title), [=](const QPaintDevice& device, QSizeF sheet) {
            return std::make_unique<ChordPaper>(page, font, parts, device, sheet.width());
          }};
}

}  // namespace korvel::ui
