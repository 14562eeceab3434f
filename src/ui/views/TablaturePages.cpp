// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablaturePages.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "tab/layout/TabPages.h"
#include "ui/desktop/Text.h"
#include "ui/views/TabCanvas.h"

namespace korvel::ui {
namespace {

/// Points; larger letters only waste paper.
constexpr double kLargestFont = 10;

QFont fitting(QFont font, const TabLayout& layout, const QPaintDevice& device, QSizeF sheet) {
  font.setPointSizeF(kLargestFont);
  const QSizeF cell = TabCanvas(font, Shades(blackOnWhite()), &device).cell();
  const double across = sheet.width() / (cell.width() * std::max(1, layout.columns()));
  const double down = sheet.height() / (cell.height() * (rowsOfLargestSystem(layout) + 1));
  font.setPointSizeF(kLargestFont * std::min({1.0, across, down}));
  return font;
}

PrintedTablature withRoom(PrintedTablature tablature) {
  if (!tablature.grips.empty()) tablature.layout.makeRoom(TabCanvas::kRowsOfGrips);
  return tablature;
}

class TablatureSheets final : public PaperSheets {
 public:
  TablatureSheets(const PrintedTablature& tablature, const QFont& font, const QPaintDevice& device,
                  QSizeF sheet)
      : m_tablature(withRoom(tablature)),
        m_layout(m_tablature.layout),
        m_canvas(fitting(font, m_layout, device, sheet), Shades(blackOnWhite()), &device) {}

  std::vector<Sheet> cut(double height) const override {
    const double row = m_canvas.cell().height();
    const double rows = std::min(height / row, static_cast<double>(m_layout.rows().size()));
    std::vector<Sheet> sheets;
    for (const TabPage& page : pagesOf(m_layout, std::max(1, static_cast<int>(rows))))
      sheets.push_back({page.first * row, page.end * row});
    return sheets;
  }

  void draw(QPainter& painter, const Sheet& sheet) const override {
    const double height = m_canvas.cell().height();
    const auto end = static_cast<int>(std::lround(sheet.bottom / height));
    const auto first = static_cast<int>(std::lround(sheet.top / height));
    painter.translate(0, -sheet.top);
    for (int row = first; row < end; ++row)
      m_canvas.drawRow(painter, m_layout, row,
                       toText(m_layout.rows()[static_cast<std::size_t>(row)]));
    painter.setRenderHint(QPainter::Antialiasing);
    m_canvas.drawSigns(painter, m_layout, first, end);
    for (const TabLayout::System& system : m_layout.systems())
      if (system.first >= first && system.first < end)
        m_canvas.drawGrips(painter, m_layout, system, m_tablature.grips, m_tablature.leftHanded);
  }

 private:
  const PrintedTablature m_tablature;
  const TabLayout& m_layout;
  const TabCanvas m_canvas;
};

}  // namespace

PaperWork tablatureWork(const PrintedTablature& tablature, const QString& title,
                        const QFont& font) {
  return {title, [=](const QPaintDevice& device, QSizeF sheet) {
            return std::make_unique<TablatureSheets>(tablature, font, device, sheet);
          }};
}

}  // namespace korvel::ui
