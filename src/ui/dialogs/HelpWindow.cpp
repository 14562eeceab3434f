// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/HelpWindow.h"

#include <QKeyEvent>
#include <QScreen>

#include "platform/files/Resources.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/TextSize.h"

namespace korvel::ui {
namespace {

constexpr int kColumnsOfHelp = 60;
constexpr int kLinesOfHelp = 40;

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setWindowTitle(tr("Help"));
  setAccessibleName(tr("Help"));
  setOpenExternalLinks(true);
  // Pictures are named by their place beside the text.
  QStringList folders;
  const platform::Resources resources = platform::Resources::ofProgram();
  for (const auto& folder : resources.folders()) folders << toText(folder.string());
  setSearchPaths(folders);
  resize(sizeOfText(*this, kColumnsOfHelp, kLinesOfHelp));
}

void HelpWindow::setContent(const std::string& content) {
  setMarkdown(toText(content));
  show();
  raise();
  activateWindow();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QTextBrowser::keyPressEvent(event);
}

}  // namespace korvel::ui
