// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/Application.h"

#include <QFileInfo>
#include <QFocusEvent>
#include <QIcon>
#include <cstdlib>
#include <utility>

#include "model/store/QBTabMgr.h"
#include "ui/desktop/Appearance.h"
#include "ui/desktop/FocusRing.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/desktop/SingleInstance.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/window/MainWindow.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel::ui {
namespace {

void report(const std::exception& exception) {
  QBSession::session().handleException("window", exception);
}

/// While there is no window yet, only the alert can be shown.
void openStore(AlertBox& alert) {
  SessionViews views;
  views.alert = &alert;
  QBSession::session().attach(views);
  if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
}

QStringList absolute(const QStringList& files) {
  QStringList paths;
  for (const QString& file : files) paths.append(QFileInfo(file).absoluteFilePath());
  return paths;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setOrganizationName("korvel");
  setApplicationName("korvel");
  setApplicationDisplayName("Korvel");
  // The name of the desktop file, by which desktops find the program's icon and group its windows.
  setDesktopFileName("org.korvel.Korvel");
  setWindowIcon(QIcon::fromTheme(desktopFileName()));
}

int Application::run(const QStringList& files) {
  SingleInstance instance(QString::fromStdString(QBTabMgr::storePath()));
  if (instance.becomeFirst()) return runFirst(instance, absolute(files));
  if (instance.handOver(absolute(files))) return EXIT_SUCCESS;
  applyLanguage(Preferences().language());
  AlertBox().show(
      tr("Another Korvel of yours is running and does not answer; end it first").toStdString());
  return EXIT_FAILURE;
}

int Application::runFirst(SingleInstance& instance, const QStringList& files) {
  QtRunLoop loop(&report);
  platform::RunLoop::install(&loop);
  AlertBox alert;
  openStore(alert);
  int status = EXIT_SUCCESS;
  Handed handed{files, {}};
  do {
    status = runWindow(instance, alert, handed);
  } while (std::exchange(m_newWindowWanted, false));
  QBTabMgr::clearDb();
  platform::RunLoop::install(nullptr);
  return status;
}

/// A window speaks one language all its life, so that another language takes another window.
int Application::runWindow(SingleInstance& instance, FatalAlert& alert, Handed& handed) {
  applyLanguage(Preferences().language());
  MainWindow window(alert);
  connect(&instance, &SingleInstance::startedAgain, &window, &MainWindow::comeToFront);
  connect(&window, &MainWindow::languageChosen, this, [&] {
    m_newWindowWanted = true;
    window.close();
  });
  window.show();
  window.setLog(handed.log);
  window.greet();
  window.openLastSong();
  QBTabMgr::db().context().checkAhead();
  window.importFiles(std::exchange(handed.files, {}));
  const int status = exec();
  handed.log = window.log();
  return status;
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    if (event->type() == QEvent::FocusIn && receiver->isWidgetType())
      FocusRing::follow(*static_cast<QWidget*>(receiver),
                        static_cast<QFocusEvent*>(event)->reason());
    return QApplication::notify(receiver, event);
  } catch (const std::exception& exception) {
    report(exception);
    return true;
  }
}

}  // namespace korvel::ui
