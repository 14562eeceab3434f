// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/Panels.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>

#include "ui/desktop/Preferences.h"
#include "ui/desktop/TextSize.h"

namespace korvel::ui {
namespace {

// Of the first window, in letters and lines.
constexpr int kColumnsAtFirst = 106;
constexpr int kLinesAtFirst = 60;
// In smaller ones panels share a place, one before the other.
constexpr int kLinesForTwoRows = 40;
constexpr int kColumnsForTwoPanels = 70;

/// Gives a panel the width back that the user gave it, once the window has room for it again.
class KeptWidth final : public QObject {
 public:
  KeptWidth(QMainWindow& window, QDockWidget& panel)
      : QObject(&window), m_window(window), m_panel(panel) {
    window.installEventFilter(this);
    panel.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize && watched == &m_window) {
      ++m_settling;
      QTimer::singleShot(0, this, [this] { settle(); });
    } else if (event->type() == QEvent::Resize && m_settling == 0) {
      note();
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  /// In a window that was made narrower a panel is narrower than the user wanted.
  void note() {
    const bool hasRoom = m_window.width() >= m_widthOfWindow;
    const bool isDragged = QApplication::mouseButtons() != Qt::NoButton;
    if (!m_panel.isVisible() || m_panel.isFloating() || !(hasRoom || isDragged)) return;
    m_width = m_panel.width();
    m_widthOfWindow = m_window.width();
  }
  void settle() {
    if (m_width == 0) note();
    if (m_width > 0) m_window.resizeDocks({&m_panel}, {m_width}, Qt::Horizontal);
    QTimer::singleShot(0, this, [this] { --m_settling; });
  }

  QMainWindow& m_window;
  QDockWidget& m_panel;
  int m_width = 0;          ///< The user's.
  int m_widthOfWindow = 0;  ///< Then.
  int m_settling = 0;       ///< Changes of the window that the panel has yet to follow.
};

/// A panel that wants more room than it gets does not take it from the others.
QWidget* scrolled(QWidget* content) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(content);
  return area;
}

}  // namespace

Panels::Panels(QMainWindow& window, const Contents& contents) : m_window(window) {
  m_window.setDockNestingEnabled(true);
  m_window.setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  m_library = add(tr("Library"), "library", contents.library, Qt::LeftDockWidgetArea);
  m_window.setCentralWidget(contents.centre);  // in this order Tab goes through them
  m_roll = add(tr("Roll"), "roll", contents.roll, Qt::BottomDockWidgetArea);
  m_neck = add(tr("Fretboard"), "fretboard", contents.fretboard, Qt::BottomDockWidgetArea);
  m_log = add(tr("Log"), "log", contents.log, Qt::BottomDockWidgetArea);
  m_jobs = add(tr("Jobs"), "jobs", contents.jobs, Qt::BottomDockWidgetArea);
  m_record = add(tr("Record"), "record", contents.record, Qt::BottomDockWidgetArea);
  m_practice =
      add(tr("Practise"), "practice", scrolled(contents.practice), Qt::BottomDockWidgetArea);
  arrange();
  new KeptWidth(window, *m_library);
}

QDockWidget* Panels::add(const QString& title, const char* name, QWidget* content,
                         Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title);
  dock->setObjectName(name);
  dock->setWidget(content);
  // Behind the tab of another panel its controls would take the focus unseen.
  QSizePolicy keepsItsPlace = content->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  content->setSizePolicy(keepsItsPlace);
  QObject::connect(dock, &QDockWidget::visibilityChanged, content, &QWidget::setVisible);
  m_window.addDockWidget(area, dock);
  m_all.append(dock);
  return dock;
}

void Panels::arrange() {
  const QSize size = sizeOfText(m_window, kColumnsAtFirst, kLinesAtFirst);
  m_window.resize(size);  // or the panels would share what is there before the window shows
  const QFontMetrics metrics(m_window.font());
  const bool isFlat = size.height() < kLinesForTwoRows * metrics.lineSpacing();
  const bool isNarrow = size.width() < kColumnsForTwoPanels * metrics.horizontalAdvance('m');
  isFlat ? m_window.tabifyDockWidget(m_neck, m_roll)
         : m_window.splitDockWidget(m_roll, m_neck, Qt::Vertical);
  isNarrow ? m_window.tabifyDockWidget(m_neck, m_log)
           : m_window.splitDockWidget(m_neck, m_log, Qt::Horizontal);
  m_window.tabifyDockWidget(m_log, m_jobs);
  m_window.tabifyDockWidget(m_jobs, m_record);
  m_window.tabifyDockWidget(m_neck, m_practice);
  m_neck->raise();
  (isNarrow ? m_neck : m_log)->raise();
  if (isFlat) m_neck->raise();
  m_window.resizeDocks({m_library}, {size.width() / 6}, Qt::Horizontal);
  m_window.resizeDocks({m_neck, m_log}, {size.width() / 2, size.width() / 4}, Qt::Horizontal);
  if (isFlat)
    m_window.resizeDocks({m_neck}, {size.height() / 3}, Qt::Vertical);
  else
    m_window.resizeDocks({m_roll, m_neck}, {size.height() / 5, size.height() * 2 / 7},
                         Qt::Vertical);
}

void Panels::restore() {
  const Preferences preferences;
  m_window.restoreGeometry(preferences.windowGeometry());
  m_window.restoreState(preferences.windowState());
}

void Panels::remember() const {
  Preferences preferences;
  preferences.setWindowGeometry(m_window.saveGeometry());
  preferences.setWindowState(m_window.saveState());
}

void Panels::raiseJobs() { m_jobs->raise(); }

void Panels::goToLibrary() { goTo(*m_library); }

void Panels::goTo(QDockWidget& panel) {
  panel.show();
  panel.raise();
  panel.widget()->show();  // it may be told later that it is in front
  panel.widget()->setFocus(Qt::ShortcutFocusReason);
}

void Panels::addToggles(QMenu& menu) const {
  for (const QDockWidget* panel : m_all) menu.addAction(panel->toggleViewAction());
}

void Panels::addPlaces(QMenu& menu, const std::function<void()>& goToTablature) const {
  int number = 1;
  const auto key = [&number] { return QKeySequence(Qt::ALT | Qt::Key(Qt::Key_0 + number++)); };
  for (QDockWidget* panel : m_all) {
    menu.addAction(panel->windowTitle(), key(), panel, [panel] { goTo(*panel); });
    if (panel == m_library) menu.addAction(tr("Tablature"), key(), panel, goToTablature);
  }
}

}  // namespace korvel::ui
