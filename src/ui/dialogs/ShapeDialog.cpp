// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/ShapeDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"

namespace korvel::ui {
namespace {

constexpr std::size_t kMostShapes = 12;
constexpr int kFretsShown = 5;
constexpr QSize kPicture{76, 92};
constexpr QRectF kNeck{18, 16, 50, 70};  // in the picture
constexpr double kDot = 4.5;             // radius

/// Of the fret at the top of a picture: 1 unless the shape is further up.
int firstFret(const ChordShape& shape) {
  int lowest = 0;
  for (const int fret : shape)
    if (fret > 0) lowest = lowest == 0 ? fret : std::min(lowest, fret);
  return std::ranges::max(shape) <= kFretsShown ? 1 : lowest;
}

void paintNeck(QPainter& painter, int first) {
  const double fret = kNeck.height() / kFretsShown;
  const double string = kNeck.width() / (kStrings - 1);
  for (int i = 0; i <= kFretsShown; ++i)
    painter.drawLine(QPointF(kNeck.left(), kNeck.top() + i * fret),
                     QPointF(kNeck.right(), kNeck.top() + i * fret));
  for (int i = 0; i < kStrings; ++i)
    painter.drawLine(QPointF(kNeck.left() + i * string, kNeck.top()),
                     QPointF(kNeck.left() + i * string, kNeck.bottom()));
  if (first == 1)
    painter.fillRect(QRectF(kNeck.left(), kNeck.top() - 3, kNeck.width() + 1, 3),
                     painter.pen().color());
  else
    painter.drawText(QRectF(0, kNeck.top(), kNeck.left() - 5, fret),
                     Qt::AlignRight | Qt::AlignVCenter, QString::number(first));
}

void paintString(QPainter& painter, int string, int fret, int first) {
  const double x = kNeck.left() + string * kNeck.width() / (kStrings - 1);
  const double height = kNeck.height() / kFretsShown;
  const QColor ink = painter.pen().color();
  if (fret == kNotPlayed) {
    painter.drawText(QRectF(x - 6, 0, 12, kNeck.top() - 4), Qt::AlignCenter, "x");
    return;
  }
  painter.setBrush(fret > 0 ? QBrush(ink) : Qt::NoBrush);
  const double y = fret > 0 ? kNeck.top() + (fret - first + 0.5) * height : kNeck.top() / 2 - 2;
  painter.drawEllipse(QPointF(x, y), fret > 0 ? kDot : kDot - 1, fret > 0 ? kDot : kDot - 1);
}

/// As chord books draw it: the low string at the left, the nut at the top.
QIcon pictureOf(const ChordShape& shape, const QWidget& widget) {
  const double scale = widget.devicePixelRatioF();
  QPixmap picture(kPicture * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(widget.palette().color(QPalette::Text));
  const int first = firstFret(shape);
  paintNeck(painter, first);
  for (int string = 0; string < kStrings; ++string)
    paintString(painter, string, shape[static_cast<std::size_t>(string)], first);
  return picture;
}

}  // namespace

ShapeDialog::ShapeDialog(const OpenStrings& strings, const QString& name, QWidget* parent)
    : QDialog(parent),
      m_strings(strings),
      m_name(new QLineEdit(name)),
      m_list(new QListWidget),
      m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(tr("Set Chord"));
  m_list->setViewMode(QListView::IconMode);
  m_list->setResizeMode(QListView::Adjust);
  m_list->setMovement(QListView::Static);
  m_list->setIconSize(kPicture);
  m_list->setAccessibleName(tr("Shapes"));
  m_problem->setWordWrap(true);
  auto* form = new QFormLayout(this);
  form->addRow(tr("&Chord, such as Am7:"), m_name);
  form->addRow(m_list);
  form->addRow(m_problem);
  form->addRow(m_buttons);
  connect(m_name, &QLineEdit::textChanged, this, &ShapeDialog::showShapes);
  connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  m_name->selectAll();
  resize(6 * kPicture.width(), 4 * kPicture.height());
  showShapes();
}

void ShapeDialog::showShapes() {
  m_list->clear();
  m_shapes.clear();
  m_problem->clear();
  try {
    m_shapes = shapesOf(name(), m_strings, kMostShapes);
    if (m_shapes.empty()) m_problem->setText(tr("No hand reaches this chord in this tuning"));
  } catch (const NoChordName& problem) {
    if (!m_name->text().trimmed().isEmpty()) m_problem->setText(translated(problem));
  }
  for (const ChordShape& shape : m_shapes)
    m_list->addItem(new QListWidgetItem(pictureOf(shape, *m_list), toText(shorthandOf(shape))));
  m_list->setCurrentRow(0);
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!m_shapes.empty());
}

ChordName ShapeDialog::name() const {
  return parseChordName(QBTabMgr::db(), m_name->text().toStdString());
}

ChordShape ShapeDialog::shape() const {
  return m_shapes.at(static_cast<std::size_t>(std::max(m_list->currentRow(), 0)));
}

}  // namespace korvel::ui
