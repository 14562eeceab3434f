// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/views/TablatureView.h"

namespace korvel::ui {

FindBar::FindBar(TablatureView& tablature, QWidget* parent)
    : QWidget(parent), m_tablature(tablature), m_name(new QLineEdit), m_answer(new QLabel) {
  auto* label = new QLabel(tr("&Chord:"));
  auto* previous = new QPushButton(tr("&Previous"));
  auto* next = new QPushButton(tr("&Next"));
  label->setBuddy(m_name);
  m_name->setPlaceholderText(tr("Am7"));
  m_name->setAccessibleName(tr("Chord to find"));
  auto* row = new QHBoxLayout(this);
  for (QWidget* each : std::initializer_list<QWidget*>{label, m_name, previous, next, m_answer})
    row->addWidget(each);
  row->addStretch();
  connect(next, &QPushButton::clicked, this, [this] { find(true); });
  connect(previous, &QPushButton::clicked, this, [this] { find(false); });
  connect(m_name, &QLineEdit::textEdited, m_answer, &QLabel::clear);
  connect(m_name, &QLineEdit::returnPressed, this, [this] { find(true); });
  hide();
}

void FindBar::open() {
  show();
  m_name->setFocus();
  m_name->selectAll();
}

void FindBar::find(bool forward) {
  const QString name = m_name->text().trimmed();
  const bool found = forward ? m_tablature.findNext(name) : m_tablature.findPrevious(name);
  m_answer->setText(found || name.isEmpty() ? QString() : tr("No chord \"%1\"").arg(name));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) {
    QWidget::keyPressEvent(event);
    return;
  }
  hide();
  m_tablature.setFocus();
}

}  // namespace korvel::ui
