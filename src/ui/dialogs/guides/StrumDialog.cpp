// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/guides/StrumDialog.h"

#include <QComboBox>

#include "arrange/strumming/StrumPatterns.h"
#include "ui/desktop/Translated.h"
#include "workflow/arranging/guided/PatternStrummed.h"

namespace korvel::ui {
namespace {

QStringList titles() {
  QStringList all;
  for (const StrumPattern& each : strumPatterns()) all << translated(each.title);
  return all;
}

}  // namespace

StrumDialog::StrumDialog(QBSong& song, QWidget* parent)
    : GuideDialog(song, tr("Strum"), tr("&Make It"), parent),
      m_pattern(addChoice(tr("&Pattern"), titles())) {
  choiceChanged();
}

const StrumPattern& StrumDialog::pattern() const {
  return strumPatterns()[static_cast<std::size_t>(m_pattern->currentIndex())];
}

std::string StrumDialog::preview() const { return strummedBy(pattern()).preview(song()); }

}  // namespace korvel::ui
