// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QList>
#include <functional>

class QDockWidget;
class QMainWindow;
class QMenu;
class QWidget;

namespace korvel::ui {

/// The panels around the tablature: as a first start has them, and as the user left them.
class Panels {
  Q_DECLARE_TR_FUNCTIONS(korvel::ui::Panels)

 public:
  struct Contents {
    QWidget* library;
    QWidget* centre;  ///< The tablature with what belongs to it.
    QWidget* roll;
    QWidget* fretboard;
    QWidget* log;
    QWidget* jobs;
    QWidget* record;
    QWidget* practice;
  };

  /// Gives the window a size as well. All of it becomes the window's.
  Panels(QMainWindow& window, const Contents& contents);

  /// As they were when `remember` was called last.
  void restore();
  void remember() const;
  /// Shows it before others that share its place.
  void raiseJobs();
  void goToLibrary();
  /// Entries that show and hide each.
  void addToggles(QMenu& menu) const;
  /// Entries that give each the focus by a number, in the order of the window, the tablature after
  /// the library.
  void addPlaces(QMenu& menu, const std::function<void()>& goToTablature) const;

 private:
  QDockWidget* add(const QString& title, const char* name, QWidget* content,
                   Qt::DockWidgetArea area);
  void arrange();
  static void goTo(QDockWidget& panel);

  QMainWindow& m_window;
  QList<QDockWidget*> m_all;
  QDockWidget* m_library;
  QDockWidget* m_roll;
  QDockWidget* m_neck;
  QDockWidget* m_log;
  QDockWidget* m_jobs;
  QDockWidget* m_record;
  QDockWidget* m_practice;
};

}  // namespace korvel::ui
