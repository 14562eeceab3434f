// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

namespace korvel::ui {

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
  int runFirst(class SingleInstance& instance, const QStringList& files);
};

}  // namespace korvel::ui
