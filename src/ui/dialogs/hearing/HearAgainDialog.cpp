// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/hearing/HearAgainDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {

HearAgainDialog::HearAgainDialog(const precise::Settings& settings, const QBSong& song,
                                 QWidget* parent)
    : QDialog(parent), m_tuning(new QComboBox), m_pitches{openStringsOf(&song).pitches()} {
  setWindowTitle(tr("Hear Selection Again"));
  auto* form = new QFormLayout(this);
  m_choice = new HearingChoice(*form, settings);
  m_tuning->addItem(tr("That of the song"));
  for (const auto& tuning : QBTabMgr::db().tunings()) {
    if (tuning.get() == tuningOf(&song)) continue;
    m_tuning->addItem(toText(tuning->descr()));
    m_pitches.push_back(tuning->openStrings().pitches());
  }
  m_tuning->setToolTip(
      tr("How the guitar is tuned there; the song keeps its tuning, and the notes "
         "come onto its strings as they sound"));
  form->addRow(tr("&Tuning there"), m_tuning);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  buttons->addButton(tr("&Hear Again"), QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
}

std::optional<OpenPitches> HearAgainDialog::playedOn() const {
  if (m_tuning->currentIndex() <= 0) return {};
  return m_pitches[static_cast<std::size_t>(m_tuning->currentIndex())];
}

}  // namespace korvel::ui
