// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/paper/PaperFiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <cmath>
#include <limits>
#include <new>

#include "platform/files/Files.h"
#include "platform/text/LocalPaper.h"
#include "tab/paper/PrintedSong.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr double kMillimetresOfInch = 25.4;
constexpr double kMargin = 12;        ///< Millimetres.
constexpr double kFootFont = 8;       ///< Points.
constexpr double kLinesOfFoot = 2.5;  ///< With what keeps it apart.
constexpr int kDotsOfPng = 150;       ///< Of an inch.
constexpr int kDotsOfSvg = 96;        ///< What browsers take for an inch.
constexpr int kHighestPng = 25000;    ///< Pixels; many programs open no picture of above 128 MiB.

QFont footFont() {
  QFont font;
  font.setPointSizeF(kFootFont);
  return font;
}

double heightOfFoot(const QPaintDevice& device) {
  return kLinesOfFoot * QFontMetricsF(footFont(), &device).height();
}

/// Title and numbers at the foot of a sheet; page from 1 on.
void drawFoot(QPainter& painter, const QRectF& sheet, const QString& title, std::size_t page,
              std::size_t pages) {
  painter.setFont(footFont());
  painter.setPen(Qt::black);
  const QString numbers =
      QCoreApplication::translate("korvel::ui::TablaturePages", "%1 – page %2 of %3")
          .arg(QString(), QString::number(page), QString::number(pages));
  const QFontMetricsF metrics(painter.font(), painter.device());
  const double room = sheet.width() - metrics.horizontalAdvance(numbers);
  painter.drawText(sheet, Qt::AlignHCenter | Qt::AlignBottom,
                   metrics.elidedText(title, Qt::ElideRight, room) + numbers);
}

QByteArray pdfOf(const PaperWork& work, const QPageSize& paper) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPdfWriter writer(&bytes);
  writer.setTitle(work.title);
  writer.setCreator("Korvel");
  writer.setPageSize(paper);
  writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
  if (!printOn(writer, work)) throw std::bad_alloc();
  return bytes.data();
}

/// Measures of a picture, in its dots.
struct Frame {
  Frame(const QPageSize& paper, int dotsOfInch)
      : dots(dotsOfInch),
        width(paper.sizePixels(dotsOfInch).width()),
        margin(kMargin / kMillimetresOfInch * dotsOfInch) {}

  QSizeF room(double height) const { return {width - 2 * margin, height}; }
  int heightAround(double content) const {
    return static_cast<int>(std::ceil(content + 2 * margin));
  }
  int dots;
  int width;
  double margin;
};

QImage blankImage(const Frame& frame, int height) {
  QImage image(frame.width, height, QImage::Format_RGB32);
  if (image.isNull()) throw std::bad_alloc();
  const double dotsOfMetre = frame.dots / kMillimetresOfInch * 1000;
  image.setDotsPerMeterX(static_cast<int>(std::lround(dotsOfMetre)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(dotsOfMetre)));
  image.fill(Qt::white);
  return image;
}

/// The letters that were used, or other ones of their kind where these are not: what Qt calls a
/// family may be a name of this machine only.
QByteArray withFamilies(const QByteArray& svg) {
  static const QRegularExpression kFamily("font-family=\"([^\"]*)\"");
  QString text = QString::fromUtf8(svg);
  QHash<QString, QString> families;
  for (auto found = kFamily.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const QFontInfo used{QFont(match.captured(1))};
    families[match.captured()] =
        QString("font-family=\"%1, %2\"")
            .arg(used.family().toHtmlEscaped(), used.fixedPitch() ? "monospace" : "sans-serif");
  }
  for (auto family = families.cbegin(); family != families.cend(); ++family)
    text.replace(family.key(), family.value());
  return text.toUtf8();
}

QByteArray svgOf(const PaperWork& work, const QPageSize& paper) {
  const Frame frame(paper, kDotsOfSvg);
  const QImage device = blankImage(frame, 1);
  const auto sheets = work.layOut(device, frame.room(std::numeric_limits<float>::max()));
  const auto sheet = sheets->cut(std::numeric_limits<float>::max()).front();
  const QSize size(frame.width, frame.heightAround(sheet.bottom - sheet.top));
  QBuffer bytes;
  QSvgGenerator generator;
  generator.setOutputDevice(&bytes);
  generator.setTitle(work.title);
  generator.setDescription({});
  generator.setResolution(frame.dots);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(), size));
  QPainter painter(&generator);
  painter.fillRect(QRect(QPoint(), size), Qt::white);
  painter.translate(frame.margin, frame.margin);
  sheets->draw(painter, sheet);
  painter.end();
  return withFamilies(bytes.data());
}

QByteArray asPng(QImage image, const QString& title) {
  image.setText("Title", title);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) throw std::bad_alloc();
  return bytes.data();
}

std::vector<QByteArray> pngsOf(const PaperWork& work, const QPageSize& paper) {
  const Frame frame(paper, kDotsOfPng);
  const QImage device = blankImage(frame, 1);
  const double foot = heightOfFoot(device);
  const double most = kHighestPng - 2 * frame.margin - foot;
  const auto laidOut = work.layOut(device, frame.room(most));
  const auto sheets = laidOut->cut(most);
  std::vector<QByteArray> files;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const double height = sheets[i].bottom - sheets[i].top + (sheets.size() > 1 ? foot : 0);
    QImage image = blankImage(frame, frame.heightAround(height));
    QPainter painter(&image);
    painter.translate(frame.margin, frame.margin);
    painter.save();
    laidOut->draw(painter, sheets[i]);
    painter.restore();
    if (sheets.size() > 1)
      drawFoot(painter, QRectF(QPointF(), frame.room(height)), work.title, i + 1, sheets.size());
    painter.end();
    files.push_back(asPng(std::move(image), work.title));
  }
  return files;
}

}  // namespace

std::optional<PaperFormat> paperFormatOf(std::string_view file) {
  const QString name = toText(file);
  const auto ends = [&](const char* ending) { return name.endsWith(ending, Qt::CaseInsensitive); };
  if (ends(".pdf")) return PaperFormat::pdf;
  if (ends(".png")) return PaperFormat::png;
  if (ends(".svg")) return PaperFormat::svg;
  return std::nullopt;
}

QPageSize usualPaper() {
  const platform::PaperSize size = platform::localPaper();
  return QPageSize(QSizeF(size.width, size.height), QPageSize::Millimeter, {},
                   QPageSize::FuzzyMatch);
}

bool printOn(QPagedPaintDevice& device, const PaperWork& work) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QRectF whole(0, 0, device.width(), device.height());
  const QSizeF room(whole.width(), whole.height() - heightOfFoot(device));
  const auto laidOut = work.layOut(device, room);
  const auto sheets = laidOut->cut(room.height());
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    if (i > 0 && !device.newPage()) return false;
    painter.save();
    laidOut->draw(painter, sheets[i]);
    painter.restore();
    drawFoot(painter, whole, work.title, i + 1, sheets.size());
  }
  return painter.end();
}

std::vector<QByteArray> drawnAs(PaperFormat format, const PaperWork& work, const QPageSize& paper) {
  switch (format) {
    case PaperFormat::png:
      return pngsOf(work, paper);
    case PaperFormat::svg:
      return {svgOf(work, paper)};
    case PaperFormat::pdf:
      break;
  }
  return {pdfOf(work, paper)};
}

std::vector<std::filesystem::path> savePaper(const PaperWork& work,
                                             const std::filesystem::path& file,
                                             const MayReplace& mayReplace) {
  const auto format = paperFormatOf(file.string()).value_or(PaperFormat::pdf);
  const auto drawn = drawnAs(format, work, usualPaper());
  std::vector<std::filesystem::path> names;
  for (std::size_t i = 0; i < drawn.size(); ++i)
    names.push_back(nameOfPart(file, i + 1, drawn.size()));
  if (drawn.size() > 1 && mayReplace)
    for (const auto& name : names)
      if (platform::isThere(name) && !mayReplace(name)) return {};
  for (std::size_t i = 0; i < drawn.size(); ++i)
    platform::writeAtomically(names[i], drawn[i].toStdString());
  return names;
}

}  // namespace korvel::ui
