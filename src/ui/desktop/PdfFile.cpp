// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/PdfFile.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "platform/files/FileError.h"

namespace korvel::ui {
namespace {

constexpr double kMarginMillimetres = 12;
constexpr double kFootFont = 8;  ///< Points.

}  // namespace

void savePdf(const QString& title, const PrintPages& print, const std::filesystem::path& path) {
  QSaveFile file(QString::fromStdString(path.string()));
  const auto fail = [&] {
    throw platform::FileError(
        path, platform::UserText(platform::phrase("Message", "cannot be written: %1"),
                                 file.errorString().toStdString()));
  };
  if (!file.open(QIODevice::WriteOnly)) fail();
  QPdfWriter writer(&file);
  writer.setTitle(title);
  writer.setCreator("Korvel");
  writer.setPageMargins(
      QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
      QPageLayout::Millimeter);
  if (!print(writer) || !file.commit()) fail();
}

void drawFoot(QPainter& painter, const QRectF& paper, const QString& title, std::size_t page,
              std::size_t pages) {
  QFont font = painter.font();
  font.setPointSizeF(kFootFont);
  painter.setFont(font);
  painter.setPen(Qt::black);
  const QString foot =
      QCoreApplication::translate("korvel::ui::TablaturePages", "%1 – page %2 of %3")
          .arg(title)
          .arg(page)
          .arg(pages);
  painter.drawText(paper, Qt::AlignHCenter | Qt::AlignBottom, foot);
}

}  // namespace korvel::ui
