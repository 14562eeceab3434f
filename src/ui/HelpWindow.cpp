// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/HelpWindow.h"

#include <QFontDatabase>

#include "ui/Text.h"

namespace korvel::ui {
namespace {

constexpr int kColumns = 104;
constexpr int kLines = 40;

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setWindowTitle(tr("Help"));
  setAccessibleName(tr("Help"));
  setOpenExternalLinks(true);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const QFontMetrics metrics(font());
  resize(kColumns * metrics.horizontalAdvance('m'), kLines * metrics.lineSpacing());
}

void HelpWindow::setContent(const std::string& content) {
  setPlainText(toText(content));
  show();
  raise();
  activateWindow();
}

}  // namespace korvel::ui
