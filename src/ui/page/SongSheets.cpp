// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/SongSheets.h"

#include <QApplication>
#include <QMenu>
#include <QTabBar>

#include "model/songs/QBSong.h"
#include "platform/files/Files.h"
#include "tab/chordpro/ChordProText.h"
#include "tab/page/PageText.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/page/PageDesk.h"
#include "ui/page/PagePapers.h"
#include "ui/page/PageView.h"
#include "ui/page/RememberedPages.h"
#include "ui/views/TablaturePages.h"
#include "ui/views/TablatureView.h"

namespace korvel::ui {

SongSheets::SongSheets(TablatureView& tablature, PageDesk& page, QWidget* parent)
    : QTabWidget(parent), m_tablature(tablature), m_page(page) {
  setAccessibleName(tr("Song"));
  setDocumentMode(true);
  tabBar()->setFocusPolicy(Qt::NoFocus);  // keys go to what is in front
  addTab(&tablature, tr("Tablature"));
  addTab(&page, tr("Page"));
  if (RememberedPages().isInFront()) setCurrentWidget(&page);
  connect(this, &QTabWidget::currentChanged, this, [this] {
    RememberedPages().setInFront(isPageInFront());
    focusFront();
  });
}

void SongSheets::addZooms(QMenu& menu) {
  const auto add = [&](const QString& title, const QKeySequence& keys, auto onPage, auto onTab) {
    menu.addAction(title, keys, this, [this, onPage, onTab] {
      isPageInFront() ? (m_page.view().*onPage)() : (m_tablature.*onTab)();
    });
  };
  add(tr("Zoom &In"), QKeySequence::ZoomIn, &PageView::zoomIn, &TablatureView::zoomIn);
  add(tr("Zoom &Out"), QKeySequence::ZoomOut, &PageView::zoomOut, &TablatureView::zoomOut);
  add(tr("&Actual Size"), tr("Ctrl+0"), &PageView::resetZoom, &TablatureView::resetZoom);
}

void SongSheets::addPage(QMenu& menu) {
  menu.addAction(tr("Page"), QKeySequence(Qt::ALT | Qt::Key_9), this, &SongSheets::goToPage);
}

bool SongSheets::isPageInFront() const { return currentWidget() == &m_page; }

void SongSheets::goToTablature() {
  setCurrentWidget(&m_tablature);
  m_tablature.setFocus();
}

void SongSheets::showTablature() {
  if (isPageInFront()) goToTablature();
}

void SongSheets::goToPage() {
  setCurrentWidget(&m_page);
  m_page.view().setFocus();
}

void SongSheets::focusFront() {
  isPageInFront() ? m_page.view().setFocus() : m_tablature.setFocus();
}

PaperWork SongSheets::tablatureOf(QBSong& song) const {
  const Preferences preferences;
  const PrintedSong printed =
      printedTablature(song, preferences.showsDiagrams(), preferences.leftHanded());
  return tablatureWork(std::get<PrintedTablature>(printed.content), toText(printed.title),
                       m_tablature.tabFont());
}

PaperWork SongSheets::frontOf(QBSong& song) const {
  return isPageInFront() ? pageWork(rememberedPageOf(song), font(), PageSheet::Parts::all)
                         : tablatureOf(song);
}

std::vector<std::filesystem::path> writePage(QBSong& song, const std::filesystem::path& file,
                                             const MayReplace& mayReplace) {
  const SongPage page = rememberedPageOf(song);
  if (file.extension() == ".txt")
    platform::writeAtomically(file, pageText(page));
  else if (file.extension() == ".cho")
    platform::writeAtomically(file, chordProOf(page));
  else
    return savePaper(pageWork(page, QApplication::font(), PageSheet::Parts::all), file, mayReplace);
  return {file};
}

}  // namespace korvel::ui
