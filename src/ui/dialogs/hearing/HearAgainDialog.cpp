// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/hearing/HearAgainDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

namespace korvel::ui {

HearAgainDialog::HearAgainDialog(const precise::Settings& settings, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Hear Selection Again"));
  auto* form = new QFormLayout(this);
  m_choice = new HearingChoice(*form, settings);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  buttons->addButton(tr("&Hear Again"), QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
}

}  // namespace korvel::ui
