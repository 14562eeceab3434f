// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/offers/OfferBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace korvel::ui {

OfferBar::OfferBar(const QString& question, std::function<void()> accept, QWidget* parent)
    : QFrame(parent) {
  setFrameShape(StyledPanel);
  setAccessibleName(question);
  auto* yes = new QPushButton(tr("Yes"));
  auto* no = new QPushButton(tr("No"));
  connect(yes, &QPushButton::clicked, this, [this, accept = std::move(accept)] {
    deleteLater();
    accept();
  });
  connect(no, &QPushButton::clicked, this, &QObject::deleteLater);
  auto* row = new QHBoxLayout(this);
  auto* text = new QLabel(question);
  text->setWordWrap(true);
  row->addWidget(text, 1);
  row->addWidget(yes);
  row->addWidget(no);
}

}  // namespace korvel::ui
