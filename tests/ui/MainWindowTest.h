// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/views/TablatureView.h"
#include "ui/window/JobPanel.h"
#include "ui/window/LogPanel.h"
#include "ui/window/MainWindow.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel::ui {

/// The window on a new store, with a recording beside it.
struct MainWindowTest : testing::Test {
  MainWindowTest() {
    QSettings().clear();
    QSettings().setValue("keepRecordings", false);  // asked at the first import
    platform::RunLoop::install(&m_loop);
    test::writeWav(m_file, test::fewChords());
    open();
  }
  ~MainWindowTest() override {
    close();
    platform::RunLoop::install(nullptr);
  }

  void open() {
    if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
    m_window.emplace(m_alert);
    m_window->show();
  }
  /// Answers what is asked while something is heard.
  void close(const QString& answer = "Keep What Was Heard") {
    QTimer asked;
    QObject::connect(&asked, &QTimer::timeout, [&answer] { press(answer); });
    asked.start(10);
    if (m_window) m_window->close();
    if (m_window && m_window->isVisible()) return;
    m_window.reset();
  }
  static void press(const QString& answer) {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    for (auto* button : dialog->findChildren<QPushButton*>())
      if (button->text() == answer) button->click();
  }
  QPushButton* jobButton(const QString& text) {
    QPushButton* last = nullptr;  // that of the newest job
    for (auto* button : m_window->findChild<JobPanel*>()->findChildren<QPushButton*>())
      if (button->text() == text) last = button;
    return last;
  }
  void import() {
    m_window->importFiles({QString::fromStdString(m_file)});
    ASSERT_TRUE(QTest::qWaitFor([] { return ImportDesk::running().empty(); }, 20000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_window->tablature().song() != nullptr; }));
  }
  QAction* action(const QString& text, QMenu* menu = nullptr) {
    const auto actions = menu ? menu->actions() : m_window->menuBar()->actions();
    for (QAction* each : actions) {
      if (each->text().remove('&') == text) return each;
      if (QAction* found = each->menu() ? action(text, each->menu()) : nullptr) return found;
    }
    return nullptr;
  }
  QString log() { return m_window->findChild<LogPanel*>()->toPlainText(); }
  static std::string titles() {
    std::string text;
    for (const auto& album : QBTabMgr::db().albums())
      for (const QBSong* song : album->songs()) text += album->name() + '/' + song->title() + ' ';
    return text;
  }

  const test::ScratchStore m_store{test::ScratchStore::Content::ofFirstStart};
  const test::ScratchFolder& m_folder = m_store.folder();
  const std::string m_file = m_folder.file("Tune.wav");
  QtRunLoop m_loop{[](const std::exception& error) { FAIL() << error.what(); }};
  AlertBox m_alert;
  std::optional<MainWindow> m_window;
};

}  // namespace korvel::ui
