// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/ShapeDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/views/grips/GripPicture.h"

namespace korvel::ui {
namespace {

constexpr std::size_t kMostShapes = 12;

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
  m_list->setIconSize(GripPicture::kSize);
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
  resize(6 * GripPicture::kSize.width(), 4 * GripPicture::kSize.height());
  showShapes();
}

void ShapeDialog::keepName() {
  m_name->setReadOnly(true);
  m_list->setFocus();
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
  const bool leftHanded = Preferences().leftHanded();
  for (const ChordShape& shape : m_shapes)
    m_list->addItem(new QListWidgetItem(GripPicture(shape, leftHanded).icon(*m_list),
                                        toText(shorthandOf(shape))));
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
