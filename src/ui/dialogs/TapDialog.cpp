// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/TapDialog.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/sound/PlayerBar.h"
#include "workflow/editing/rhythm/WishedRhythm.h"

namespace korvel::ui {

TapDialog::TapDialog(PlayerBar& player, QWidget* parent)
    : QDialog(parent),
      m_player(player),
      m_count(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(tr("Tap Along"));
  auto* beat = new QPushButton(tr("&Tap"));
  beat->setAutoDefault(false);
  for (QAbstractButton* button : m_buttons->buttons())
    if (auto* push = qobject_cast<QPushButton*>(button)) push->setAutoDefault(false);
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Press Space, or any letter, on each beat that you hear.")));
  layout->addWidget(beat);
  layout->addWidget(m_count);
  layout->addWidget(m_buttons);
  connect(beat, &QPushButton::pressed, this, &TapDialog::tap);
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  beat->setFocus();
  m_count->setText(tr("Beats: %1").arg(0));
  if (!m_player.song()) m_player.play();
}

void TapDialog::keyPressEvent(QKeyEvent* event) {
  const bool isTyped = !event->text().trimmed().isEmpty() && !event->isAutoRepeat();
  if (isTyped && event->key() != Qt::Key_Escape && event->key() != Qt::Key_Return &&
      event->key() != Qt::Key_Enter)
    tap();
  else
    QDialog::keyPressEvent(event);
}

/// In the time before the song begins, or in strict tempo, there is nothing to tap to.
void TapDialog::tap() {
  const auto seconds = m_player.recordedSeconds();
  if (!seconds) {
    m_count->setText(
        tr("Nothing of the recording's time is heard; play the song without strict "
           "tempo"));
    return;
  }
  m_taps.push_back(*seconds);
  m_count->setText(tr("Beats: %1").arg(m_taps.size()));
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(m_taps.size() >= WishedRhythm::kFewestTaps);
}

}  // namespace korvel::ui
