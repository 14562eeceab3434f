// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablaturePages.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <vector>

#include "model/songs/QBSong.h"
#include "tab/layout/TabPages.h"
#include "ui/desktop/PdfFile.h"
#include "ui/desktop/Text.h"
#include "ui/views/TabCanvas.h"

namespace korvel::ui {
namespace {

/// Points; larger letters only waste paper.
constexpr double kLargestFont = 10;
constexpr int kRowsOfFoot = 3;

class Press {
 public:
  Press(const TabLayout& layout, const QFont& font, QPagedPaintDevice& device)
      : m_layout(layout),
        m_paper(0, 0, device.width(), device.height()),
        m_canvas(fitting(font, device), Shades(blackOnWhite()), &device) {}

  std::vector<TabPage> pages() const {
    return pagesOf(m_layout, std::max(1, m_canvas.rowAt(m_paper.height()) - kRowsOfFoot));
  }

  void drawPage(QPainter& painter, const TabPage& page) const {
    painter.save();
    painter.translate(0, -page.first * m_canvas.cell().height());
    for (int row = page.first; row < page.end; ++row)
      m_canvas.drawRow(painter, m_layout, row,
                       toText(m_layout.rows()[static_cast<std::size_t>(row)]));
    m_canvas.drawSigns(painter, m_layout, page.first, page.end);
    painter.restore();
  }
  const QRectF& paper() const { return m_paper; }

 private:
  QFont fitting(QFont font, QPagedPaintDevice& device) const {
    font.setPointSizeF(kLargestFont);
    const QSizeF cell = TabCanvas(font, Shades(blackOnWhite()), &device).cell();
    const double across = m_paper.width() / (cell.width() * std::max(1, m_layout.columns()));
    const double down =
        m_paper.height() / (cell.height() * (rowsOfLargestSystem(m_layout) + kRowsOfFoot + 1));
    font.setPointSizeF(kLargestFont * std::min({1.0, across, down}));
    return font;
  }

  const TabLayout& m_layout;
  QRectF m_paper;
  TabCanvas m_canvas;
};

}  // namespace

bool printTablature(QBSong& song, const QFont& font, QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const TabLayout layout = TabLayout::forExport(song);
  const Press press(layout, font, device);
  const auto pages = press.pages();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i > 0 && !device.newPage()) return false;
    press.drawPage(painter, pages[i]);
    painter.setFont({});
    drawFoot(painter, press.paper(), toText(song.title()), i + 1, pages.size());
  }
  return painter.end();
}

void savePdf(QBSong& song, const QFont& font, const std::filesystem::path& path) {
  savePdf(
      toText(song.title()),
      [&](QPagedPaintDevice& device) { return printTablature(song, font, device); }, path);
}

}  // namespace korvel::ui
