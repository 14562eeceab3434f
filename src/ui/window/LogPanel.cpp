// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/LogPanel.h"

#include "ui/desktop/Translated.h"

namespace korvel::ui {
namespace {

constexpr int kMostLines = 5000;

}  // namespace

LogPanel::LogPanel(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setMaximumBlockCount(kMostLines);
  setAccessibleName(tr("Log"));
  setPlaceholderText(tr("What is done is noted here."));
}

void LogPanel::addLogText(const platform::UserText& text) { appendPlainText(translated(text)); }

}  // namespace korvel::ui
