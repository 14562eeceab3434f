// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/Application.h"

#include <QFileInfo>
#include <QFocusEvent>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "model/store/QBTabMgr.h"
#include "model/store/StoreUnavailable.h"
#include "platform/sqlite/StoreError.h"
#include "ui/desktop/Appearance.h"
#include "ui/desktop/FocusRing.h"
#include "ui/desktop/Languages.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/desktop/SingleInstance.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/window/MainWindow.h"
#include "workflow/session/ProgramEnd.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

constexpr auto kWaitStep = 200ms;
constexpr int kStoreFailureStatus = -1;

/// While there is no window yet, only the alert can be shown.
void openStore(AlertBox& alert) {
  SessionViews views;
  views.alert = &alert;
  QBSession::session().attach(views);
  try {
    prepareStore();
  } catch (const StoreUnavailable& error) {
    QBSession::session().exitWithStatus(error.context(), error.text(), kStoreFailureStatus);
  }
}

/// The one before may keep what it has heard of a long recording, which takes a while. Whether it
/// has ended before the user lost patience.
bool waitToBeFirst(SingleInstance& instance) {
  QMessageBox box(QMessageBox::Information, QApplication::applicationDisplayName(),
                  Application::tr("The Korvel before is still keeping what it has heard, or does "
                                  "not answer. This one opens as soon as that one has ended."),
                  QMessageBox::Cancel);
  bool isFirst = false;
  QTimer clock;
  QObject::connect(&clock, &QTimer::timeout, &box, [&] {
    isFirst = instance.becomeFirst();
    if (isFirst) box.accept();
  });
  clock.start(kWaitStep);
  box.exec();
  return isFirst;
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
  return waitToBeFirst(instance) ? runFirst(instance, absolute(files)) : EXIT_FAILURE;
}

int Application::runFirst(SingleInstance& instance, const QStringList& files) {
  QtRunLoop loop([this](const std::exception& exception) { report(exception); });
  platform::RunLoop::install(&loop);
  AlertBox alert;
  int status = EXIT_SUCCESS;
  try {
    openStore(alert);
    Handed handed{files, {}};
    do {
      status = runWindow(instance, alert, handed);
    } while (std::exchange(m_newWindowWanted, false));
  } catch (const ProgramEnd& end) {
    status = end.status;
  }
  QBTabMgr::clearDb();
  platform::RunLoop::install(nullptr);
  return status;
}

/// A window speaks one language all its life, so that another language takes another window.
int Application::runWindow(SingleInstance& instance, FatalAlert& alert, Handed& handed) {
  applyLanguage(Preferences().language());
  MainWindow window(alert);
  connect(&instance, &SingleInstance::startedAgain, &window, &MainWindow::comeToFront);
  instance.setEnding(false);
  connect(&window, &MainWindow::ending, &instance, [&instance] { instance.setEnding(true); });
  connect(&window, &MainWindow::languageChosen, this, [&] {
    m_newWindowWanted = true;
    window.close();
  });
  window.show();
  window.setLog(handed.log);
  m_window = &window;
  window.greet();
  window.openLastSong();
  QBTabMgr::db().context().checkAhead();
  window.importFiles(std::exchange(handed.files, {}));
  const int status = exec();
  handed.log = window.log();
  return status;
}

/// A store that cannot be read or written now may be when the user has looked after it; that says
/// the window. Anything else is for the log, too.
void Application::report(const std::exception& exception) {
  const auto* known = dynamic_cast<const platform::StoreError*>(&exception);
  if (known && m_window)
    m_window->tell(*known);
  else
    QBSession::session().handleException("window", exception);
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
