// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/guides/SingAlongDialog.h"

#include <QComboBox>

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr int kLowest = -6;
constexpr int kHighest = 6;

}  // namespace

SingAlongDialog::SingAlongDialog(QBSong& song, QWidget* parent)
    : GuideDialog(song, tr("Sing Along"), tr("&Make It"), parent),
      m_chords(addChoice(tr("&Chords"), {tr("Plain: major and minor"), tr("As they are named")})),
      m_key(addChoice(tr("&First chord"), {})) {
  for (int halfTones = kHighest; halfTones >= kLowest; --halfTones) {
    const QString name = toText(firstChordAt(song, halfTones));
    const QString distance = QString(halfTones > 0 ? "+%1" : "%1").arg(halfTones);
    m_key->addItem(halfTones == 0 ? tr("%1, as recorded").arg(name)
                                  : tr("%1, half tones: %2").arg(name, distance),
                   halfTones);
  }
  m_key->setCurrentIndex(m_key->findData(0));
  choiceChanged();
}

SingChoices SingAlongDialog::choices() const {
  return {.plain = m_chords->currentIndex() == 0, .halfTones = m_key->currentData().toInt()};
}

}  // namespace korvel::ui
