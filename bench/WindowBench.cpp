// SPDX-License-Identifier: GPL-3.0-or-later
/// How soon the window can be used on a store, how fast it opens a song, and how long it keeps the
/// user waiting while it imports.
///
/// Usage: korvel-window-bench STORE [RECORDING]
/// The store is changed by an import. Draws off the screen unless QT_QPA_PLATFORM says otherwise.
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "model/QBAlbum.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "ui/AlertBox.h"
#include "ui/MainWindow.h"
#include "ui/QtRunLoop.h"
#include "workflow/ImportDesk.h"
#include "workflow/QBSession.h"

namespace {

using namespace korvel;

double peakMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Events are handled without a break until the window has been drawn.
void draw(QWidget& window) {
  QApplication::processEvents();
  window.repaint();
  QApplication::processEvents();
}

QBSong* anySong() {
  for (const auto& album : QBTabMgr::db().albums())
    for (QBSong* song : album->songs())
      if (song->hasTabulature()) return song;
  return nullptr;
}

void measureOpening(QWidget& window) {
  QBSong* song = anySong();
  if (!song) return;
  QElapsedTimer clock;
  clock.start();
  QBSession::session().setActiveSong(song);
  draw(window);
  std::cout << "opened a song of " << song->chords().size() << " chords in " << clock.elapsed()
            << " ms\n";
}

/// The longest time between two turns of the event loop.
class StallClock {
 public:
  StallClock() {
    m_clock.start();
    QObject::connect(&m_timer, &QTimer::timeout,
                     [this] { m_longest = std::max(m_longest, m_clock.restart()); });
    m_timer.start(0);
  }
  qint64 longest() const { return m_longest; }

 private:
  QElapsedTimer m_clock;
  QTimer m_timer;
  qint64 m_longest = 0;
};

void measureImport(ui::MainWindow& window, const QString& file) {
  QElapsedTimer clock;
  clock.start();
  window.importFiles({file});
  std::cout << "import started in " << clock.elapsed() << " ms\n";
  const StallClock stalls;
  while (!ImportDesk::running().empty()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::processEvents();
  std::cout << "imported in " << clock.elapsed() / 1000 << " s, longest stall " << stalls.longest()
            << " ms\n";
}

}  // namespace

int main(int argc, char** argv) {
  QElapsedTimer clock;
  clock.start();
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName("korvel-window-bench");
  if (argc < 2) {
    std::cerr << "usage: korvel-window-bench STORE [RECORDING]\n";
    return 2;
  }
  QBTabMgr::setStorePath(argv[1]);
  ui::QtRunLoop loop([](const std::exception& error) { std::cerr << error.what() << '\n'; });
  platform::RunLoop::install(&loop);
  if (!QBTabMgr::db().isInitialized()) QBTabMgr::db().initializeData();
  ui::AlertBox alert;
  {
    ui::MainWindow window(alert);
    window.show();
    draw(window);
    std::cout << "usable after " << clock.elapsed() << " ms, peak " << peakMiB() << " MiB"
              << std::endl;
    measureOpening(window);
    if (argc > 2) measureImport(window, argv[2]);
    std::cout << "peak " << peakMiB() << " MiB\n";
  }
  QBTabMgr::clearDb();
  platform::RunLoop::install(nullptr);
  return 0;
}
