// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablaturePages.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>
#include <vector>

#include "model/songs/QBSong.h"
#include "platform/files/FileError.h"
#include "tab/layout/TabPages.h"
#include "ui/desktop/Text.h"
#include "ui/views/TabCanvas.h"

namespace korvel::ui {
namespace {

/// Points; larger letters only waste paper.
constexpr double kLargestFont = 10;
constexpr double kFootFont = 8;
constexpr int kRowsOfFoot = 3;
constexpr double kMarginMillimetres = 12;

QPalette blackOnWhite() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Highlight, Qt::black);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

class Press {
 public:
  Press(const TabLayout& layout, const QFont& font, QPagedPaintDevice& device)
      : m_layout(layout),
        m_paper(0, 0, device.width(), device.height()),
        m_canvas(fitting(font, device), Shades(blackOnWhite()), &device) {
    m_footFont.setPointSizeF(kFootFont);
  }

  std::vector<TabPage> pages() const {
    return pagesOf(m_layout, std::max(1, m_canvas.rowAt(m_paper.height()) - kRowsOfFoot));
  }

  void drawPage(QPainter& painter, const TabPage& page, const QString& foot) const {
    painter.save();
    painter.translate(0, -page.first * m_canvas.cell().height());
    for (int row = page.first; row < page.end; ++row)
      m_canvas.drawRow(painter, m_layout, row,
                       toText(m_layout.rows()[static_cast<std::size_t>(row)]));
    m_canvas.drawSigns(painter, m_layout, page.first, page.end);
    painter.restore();
    painter.setPen(Qt::black);
    painter.setFont(m_footFont);
    painter.drawText(m_paper, Qt::AlignHCenter | Qt::AlignBottom, foot);
  }

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
  QFont m_footFont;
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
    const QString number =
        QCoreApplication::translate("korvel::ui::TablaturePages", "%1 – page %2 of %3")
            .arg(toText(song.title()))
            .arg(i + 1)
            .arg(pages.size());
    press.drawPage(painter, pages[i], number);
  }
  return painter.end();
}

void savePdf(QBSong& song, const QFont& font, const std::filesystem::path& path) {
  QSaveFile file(QString::fromStdString(path.string()));
  const auto fail = [&] {
    throw platform::FileError(
        path, platform::UserText(platform::phrase("Message", "cannot be written: %1"),
                                 file.errorString().toStdString()));
  };
  if (!file.open(QIODevice::WriteOnly)) fail();
  QPdfWriter writer(&file);
  writer.setTitle(toText(song.title()));
  writer.setCreator("Korvel");
  writer.setPageMargins(
      QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
      QPageLayout::Millimeter);
  if (!printTablature(song, font, writer) || !file.commit()) fail();
}

}  // namespace korvel::ui
