// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TabPanel.h"

#include <QFontDatabase>

#include "model/QBSong.h"
#include "model/QBTuning.h"
#include "ui/Text.h"

namespace korvel::ui {

TabPanel::TabPanel(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(NoWrap);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setAccessibleName(tr("Tablature"));
}

TabPanel::~TabPanel() = default;

void TabPanel::setActiveSong(QBSong* song) {
  m_song = song;
  refresh();
}

void TabPanel::drawPlayMode(float) {}

void TabPanel::refresh() {
  drawContent(m_song && m_song->hasTabulature() ? m_song->tabulature() : "");
}

void TabPanel::handleClick(double, double) {}

void TabPanel::lock(bool locked) { setEnabled(!locked); }

void TabPanel::drawTuning(QBTuning* tuning) { drawContent(tuning ? tuning->toString() : ""); }

void TabPanel::drawContent(const std::string& text) { setPlainText(toText(text)); }

void TabPanel::sayGoodBye() {
  m_song = nullptr;
  clear();
}

}  // namespace korvel::ui
