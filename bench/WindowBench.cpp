// SPDX-License-Identifier: GPL-3.0-or-later
/// How soon the window can be used on a store, how fast it opens a song, and how long it keeps the
/// user waiting while it imports.
///
/// Usage: korvel-window-bench [--classic] STORE [RECORDING...]
/// The store is changed by the imports, which are all dropped at once. Draws off the screen unless
/// QT_QPA_PLATFORM says otherwise.
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>
#include <ctime>
#include <iostream>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/window/LogPanel.h"
#include "ui/window/MainWindow.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/session/QBCommand.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/StoreSeeding.h"

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

/// What the program was at, as the user sees it.
std::string phaseOf(const QWidget& window) {
  const QString log = window.findChild<ui::LogPanel*>()->toPlainText().section('\n', -1);
  const QBCommand& first = QBSession::session().findJobByIndex(0);
  return std::to_string(first.m_percent) + " %, after \"" + log.toStdString() + '"';
}

struct Stall {
  double wall = 0;  ///< Milliseconds, as all here.
  double processor = 0;
  std::string phase;
};

std::ostream& operator<<(std::ostream& out, const Stall& stall) {
  return out << stall.wall << " ms, processor " << stall.processor << " ms, at " << stall.phase;
}

/// The longest times between two turns of the event loop. On a busy machine the processor's time of
/// this thread says more than the wall's.
class StallClock {
 public:
  explicit StallClock(const QWidget& window) : m_window(window), m_phase(phaseOf(window)) {
    restart();
    QObject::connect(&m_timer, &QTimer::timeout, [this] { turn(); });
    m_timer.start(0);
  }
  void print() const {
    std::cout << "longest stall " << m_longest << "\nmost processor time of a stall " << m_busiest
              << "\nstalls of more than 50 ms of processor time: " << m_tooLong << '\n';
  }

 private:
  static double processorNow() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }
  void restart() {
    m_clock.restart();
    m_processor = processorNow();
  }
  void turn() {
    const Stall stall{static_cast<double>(m_clock.nsecsElapsed()) / 1e6,
                      processorNow() - m_processor, m_phase};
    if (stall.wall > m_longest.wall) m_longest = stall;
    if (stall.processor > m_busiest.processor) m_busiest = stall;
    if (stall.processor > kMost) ++m_tooLong;
    m_phase = phaseOf(m_window);
    restart();
  }

  static constexpr double kMost = 50;
  const QWidget& m_window;
  std::string m_phase;
  QElapsedTimer m_clock;
  double m_processor = 0;
  QTimer m_timer;
  Stall m_longest;
  Stall m_busiest;
  int m_tooLong = 0;
};

/// Of work that follows the last import, such as showing its song.
void waitForRest() {
  constexpr int kMilliseconds = 2000;
  bool over = false;
  QTimer::singleShot(kMilliseconds, [&over] { over = true; });
  while (!over) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void measureImport(ui::MainWindow& window, const QStringList& files) {
  QElapsedTimer clock;
  clock.start();
  window.importFiles(files);
  std::cout << files.size() << " imports started in " << clock.elapsed() << " ms\n";
  const StallClock stalls(window);
  while (!ImportDesk::running().empty()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  std::cout << "imported in " << clock.elapsed() / 1000 << " s\n";
  waitForRest();
  stalls.print();
}

}  // namespace

int main(int argc, char** argv) {
  QElapsedTimer clock;
  clock.start();
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName("korvel-window-bench");
  QStringList words = QApplication::arguments().mid(1);
  const bool classic = words.removeOne("--classic");
  if (words.isEmpty()) {
    std::cerr << "usage: korvel-window-bench [--classic] STORE [RECORDING...]\n";
    return 2;
  }
  ui::Preferences().setDetection(classic ? classicDetection() : preciseDetection(), {});
  QBTabMgr::setStorePath(words.takeFirst().toStdString());
  ui::QtRunLoop loop([](const std::exception& error) { std::cerr << error.what() << '\n'; });
  platform::RunLoop::install(&loop);
  if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
  ui::AlertBox alert;
  {
    ui::MainWindow window(alert);
    window.show();
    draw(window);
    std::cout << "usable after " << clock.elapsed() << " ms, peak " << peakMiB() << " MiB"
              << std::endl;
    measureOpening(window);
    if (!words.isEmpty()) measureImport(window, words);
    std::cout << "peak " << peakMiB() << " MiB\n";
  }
  QBTabMgr::clearDb();
  platform::RunLoop::install(nullptr);
  return 0;
}
