// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PagePapers.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <vector>

#include "ui/desktop/PdfFile.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

/// Points: to be read from a music stand.
constexpr double kFontOfPaper = 11;
constexpr double kLinesOfFoot = 2;

/// What lies between two heights of the sheet.
struct Paper {
  double top;
  double bottom;
};

/// A band that is higher than a paper is torn all the same.
std::vector<Paper> papersOf(const PageSheet& sheet, double height) {
  std::vector<Paper> papers;
  for (const PageSheet::Band& band : sheet.bands())
    if (papers.empty() || band.bottom - papers.back().top > height)
      papers.push_back({band.top, band.bottom});
    else
      papers.back().bottom = band.bottom;
  return papers;
}

}  // namespace

bool printPage(const SongPage& page, const QFont& font, PageSheet::Parts parts,
               QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  QFont letters = font;
  letters.setPointSizeF(kFontOfPaper);
  const QRectF whole(0, 0, device.width(), device.height());
  const PageSheet sheet(page, letters, whole.width(), parts, &device);
  const auto papers = papersOf(sheet, whole.height() - kLinesOfFoot * sheet.lineHeight());
  const Shades shades(blackOnWhite());
  for (std::size_t i = 0; i < papers.size(); ++i) {
    if (i > 0 && !device.newPage()) return false;
    const Paper& paper = papers[i];
    painter.save();
    painter.translate(0, -paper.top);
    painter.setClipRect(QRectF(0, paper.top, whole.width(), paper.bottom - paper.top));
    sheet.paint(painter, shades, paper.top, paper.bottom);
    painter.restore();
    painter.setFont(font);
    drawFoot(painter, whole, toText(page.title), i + 1, papers.size());
  }
  return painter.end();
}

void savePagePdf(const SongPage& page, const QFont& font, PageSheet::Parts parts,
                 const std::filesystem::path& file) {
  savePdf(
      toText(page.title),
      [&](QPagedPaintDevice& device) { return printPage(page, font, parts, device); }, file);
}

}  // namespace korvel::ui
