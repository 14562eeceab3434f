// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPointer>
#include <exception>

namespace korvel {
class FatalAlert;
}

namespace korvel::ui {

class MainWindow;
class SingleInstance;

/// The program with a window: names itself to the desktop, and lets no exception of a window's
/// action end it.
class Application final : public QApplication {
  Q_OBJECT

 public:
  Application(int& argc, char** argv);

  /// Runs until the window closes. Answers the exit status. The files are imported; a second start
  /// hands them to the first one's window.
  int run(const QStringList& files);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  /// What one window hands to the next.
  struct Handed {
    QStringList files;  ///< To be imported.
    QString log;
  };

  int runFirst(SingleInstance& instance, const QStringList& files);
  int runWindow(SingleInstance& instance, FatalAlert& alert, Handed& handed);

  void report(const std::exception& exception);

  QPointer<MainWindow> m_window;
  bool m_newWindowWanted = false;
};

}  // namespace korvel::ui
