// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/hearing/NotesDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "workflow/editing/doubts/SongCorrections.h"

namespace korvel::ui {
namespace {

constexpr int kStepsOfSlider = SongCorrections::kSensitivities;

}  // namespace

NotesDialog::NotesDialog(Preview preview, double sensitivity, bool part, QWidget* parent)
    : QDialog(parent),
      m_preview(std::move(preview)),
      m_slider(new QSlider(Qt::Horizontal)),
      m_changes(new QLabel) {
  setWindowTitle(part ? tr("Fewer or More Notes in the Selection") : tr("Fewer or More Notes"));
  m_slider->setRange(0, kStepsOfSlider);
  m_slider->setValue(static_cast<int>(std::lround(sensitivity * kStepsOfSlider)));
  m_slider->setPageStep(kStepsOfSlider / 10);
  m_slider->setAccessibleName(tr("Fewer notes to the left, more notes to the right"));
  auto* scale = new QHBoxLayout;
  scale->addWidget(new QLabel(tr("Fewer notes")));
  scale->addWidget(m_slider, 1);
  scale->addWidget(new QLabel(tr("More notes")));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_slider, &QSlider::valueChanged, this, &NotesDialog::showChanges);
  auto* rows = new QVBoxLayout(this);
  rows->addLayout(scale);
  rows->addWidget(m_changes);
  rows->addWidget(buttons);
  showChanges();
}

double NotesDialog::sensitivity() const {
  return static_cast<double>(m_slider->value()) / kStepsOfSlider;
}

void NotesDialog::showChanges() {
  m_changes->setText(m_preview(sensitivity()));
  m_slider->setAccessibleDescription(m_changes->text());
}

}  // namespace korvel::ui
