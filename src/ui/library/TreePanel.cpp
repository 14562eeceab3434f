// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/TreePanel.h"

#include <QAccessible>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSet>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <set>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/library/LibraryActions.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

TreePanel::TreePanel(LibraryTree& library, LibraryActions& actions, QWidget* parent)
    : QWidget(parent),
      m_model(library),
      m_filter(m_model),
      m_actions(actions),
      m_search(new QLineEdit),
      m_view(new QTreeView) {
  m_filter.setOrder(Preferences().songOrder());
  m_filter.setRecursiveFilteringEnabled(true);
  m_filter.setAutoAcceptChildRows(true);
  m_filter.setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_search->setPlaceholderText(tr("Search"));
  m_search->setAccessibleName(tr("Search in albums, songs, tunings and instruments"));
  m_search->setClearButtonEnabled(true);
  for (auto* clear : m_search->findChildren<QToolButton*>())
    clear->setAccessibleName(tr("Clear Search"));
  m_view->setModel(&m_filter);
  m_view->setHeaderHidden(true);
  m_view->setUniformRowHeights(true);
  m_view->setDragDropMode(QAbstractItemView::DragDrop);
  m_view->setDropIndicatorShown(true);
  m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
  m_view->setEditTriggers(QAbstractItemView::EditKeyPressed);
  m_view->setContextMenuPolicy(Qt::CustomContextMenu);
  m_view->setAccessibleName(tr("Library"));
  m_view->installEventFilter(this);
  setFocusProxy(m_view);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_search);
  column->addWidget(m_view);
  connect(m_search, &QLineEdit::textChanged, this, &TreePanel::search);
  connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &TreePanel::select);
  for (const auto signal : {&QTreeView::clicked, &QTreeView::activated})
    connect(m_view, signal, this, [this](const QModelIndex& index) {
      if (QBSong* song = m_model.songAt(m_filter.mapToSource(index))) emit songClicked(song);
    });
  connect(m_view, &QWidget::customContextMenuRequested, this, &TreePanel::showMenu);
  connect(m_view, &QTreeView::activated, this, [this](const QModelIndex& index) {
    if (m_model.songAt(m_filter.mapToSource(index))) emit songActivated();
  });
  connect(&m_model, &TreeModel::refused, this, &TreePanel::refused);
  connect(&m_model, &TreeModel::titleChanged, this, &TreePanel::titleChanged);
  connect(&m_model, &TreeModel::filesDropped, this, &TreePanel::drop);
  connect(&m_actions, &LibraryActions::renameWanted, this, &TreePanel::rename);
  connect(&m_actions, &LibraryActions::albumCreated, this,
          [this, &library](const QBAlbum* album) { rename(library.find(album).get()); });
}

void TreePanel::refreshAllContents() {
  m_filter.measure();
  m_model.refresh();
}

void TreePanel::addOrders(QMenu& menu) {
  auto* group = new QActionGroup(&menu);
  const auto add = [&](const QString& title, SongOrder order) {
    QAction* entry = menu.addAction(title, this, [this, order] {
      m_filter.setOrder(order);
      Preferences().setSongOrder(order);
    });
    entry->setCheckable(true);
    entry->setChecked(order == m_filter.order());
    group->addAction(entry);
  };
  add(tr("As &Stored"), SongOrder::asStored);
  add(tr("By &Title"), SongOrder::byTitle);
  add(tr("&Newest First"), SongOrder::newestFirst);
  add(tr("By &Length"), SongOrder::byLength);
}

void TreePanel::showSong(const QBSong* song) {
  const QModelIndex index = m_filter.mapFromSource(m_model.indexOf(song));
  if (!index.isValid() || index == m_view->currentIndex()) return;
  m_following = true;
  m_view->setCurrentIndex(index);
  m_view->scrollTo(index);
  m_following = false;
}

void TreePanel::focusSearch() {
  m_search->setFocus();
  m_search->selectAll();
}

void TreePanel::rename(const TreeNode* node) {
  m_view->setCurrentIndex(m_filter.mapFromSource(m_model.indexOf(node)));
  renameCurrent();
}

/// Shows all that is found, and afterwards the tree as it was, with what was chosen meanwhile.
/// Which song is shown stays. While the search hides its row none is selected, so that no command
/// goes to a song that is not the one shown.
void TreePanel::search(const QString& text) {
  const auto chosen = m_model.nodeOf(currentIndex());
  if (!m_searching) m_openBefore = openBranches();
  m_searching = !text.isEmpty();
  m_following = true;
  m_filter.setFilterFixedString(text);
  m_searching ? m_view->expandAll() : setOpenBranches(m_openBefore);
  m_view->setCurrentIndex(m_filter.mapFromSource(m_model.indexOf(chosen.get())));
  m_following = false;
  if (!chosen) showSong(QBSession::session().activeSong());
  if (!m_searching) m_view->scrollTo(m_view->currentIndex());
}

void TreePanel::forEachBranch(
    const std::function<void(const QModelIndex&, const QString& key)>& act) const {
  for (int group = 0; group < m_filter.rowCount(); ++group) {
    const QModelIndex top = m_filter.index(group, 0);
    const QString key = QString::number(m_filter.mapToSource(top).row());
    act(top, key);
    for (int row = 0; row < m_filter.rowCount(top); ++row) {
      const QModelIndex branch = m_filter.index(row, 0, top);
      act(branch, key + '/' + branch.data(Qt::EditRole).toString());
    }
  }
}

QStringList TreePanel::openBranches() const {
  if (m_searching) return m_openBefore;
  QStringList keys;
  forEachBranch([&](const QModelIndex& branch, const QString& key) {
    if (m_view->isExpanded(branch)) keys.append(key);
  });
  return keys;
}

void TreePanel::setOpenBranches(const QStringList& keys) {
  const QSet<QString> open(keys.begin(), keys.end());
  forEachBranch([&](const QModelIndex& branch, const QString& key) {
    m_view->setExpanded(branch, open.contains(key));
  });
}

void TreePanel::renameCurrent() { m_view->edit(m_view->currentIndex()); }

QModelIndex TreePanel::currentIndex() const { return m_filter.mapToSource(m_view->currentIndex()); }

void TreePanel::select(const QModelIndex& current) {
  const auto node = m_model.nodeOf(m_filter.mapToSource(current));
  QBSession::session().setActiveTreeNode(node.get());
  if (node && !m_following) node->mouseClick();
}

void TreePanel::showMenu(const QPoint& position) {
  const QModelIndex index = m_filter.mapToSource(m_view->indexAt(position));
  QMenu menu;
  if (m_model.isGroup(index, TreeModel::Group::tunings))
    m_actions.fillTuningsMenu(menu);
  else if (m_model.isGroup(index, TreeModel::Group::instruments))
    m_actions.fillInstrumentsMenu(menu);
  else if (selectedSongs().size() > 1 &&
           m_view->selectionModel()->isSelected(m_view->indexAt(position)))
    fillMenuOfSelected(menu);
  else if (const auto node = m_model.nodeOf(index))
    m_actions.fillMenu(menu, *node);
  else
    m_actions.fillRootMenu(menu);
  // Readers of the screen learn of a menu only by the entry that has the focus.
  if (m_menuByKeys)
    QTimer::singleShot(0, &menu, [&menu] {
      QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
      QCoreApplication::sendEvent(&menu, &down);
    });
  menu.exec(m_view->viewport()->mapToGlobal(position));
}

std::vector<std::shared_ptr<TreeNode>> TreePanel::selectedNodes() const {
  std::vector<std::shared_ptr<TreeNode>> nodes;
  for (const QModelIndex& each : m_view->selectionModel()->selectedRows())
    if (auto node = m_model.nodeOf(m_filter.mapToSource(each))) nodes.push_back(std::move(node));
  return nodes;
}

/// Those of an album that is selected count only where they are selected themselves.
std::vector<platform::Ref<QBSong>> TreePanel::selectedSongs() const {
  std::vector<platform::Ref<QBSong>> songs;
  for (const auto& node : selectedNodes())
    if (QBSong* song = node->song()) songs.emplace_back(song);
  return songs;
}

void TreePanel::fillMenuOfSelected(QMenu& menu) {
  m_actions.fillSongsMenu(menu, selectedSongs());
  menu.addAction(tr("Delete"), this, &TreePanel::deleteSelected);
}

/// All that is selected, as one action.
void TreePanel::deleteSelected() {
  std::vector<std::shared_ptr<TreeNode>> nodes = selectedNodes();
  std::set<const QBAlbum*> albums;
  for (const auto& node : nodes)
    if (!node->song() && node->album()) albums.insert(node->album());
  std::erase_if(nodes, [&](const auto& node) {
    const bool goesWithAlbum = node->song() && albums.contains(node->song()->album());
    return !node->canDelete() || goesWithAlbum;
  });
  if (nodes.size() == 1) return m_actions.remove(*nodes.front());
  const platform::UndoGroup group(QBTabMgr::db().context().undoManager(),
                                  platform::phrase("UndoAction", "Delete Songs"));
  for (const auto& node : nodes) m_actions.remove(*node);
}

void TreePanel::drop(const QStringList& files, const QModelIndex& into) {
  const auto node = m_model.nodeOf(into);
  m_actions.importFiles(files, node ? node->album() : nullptr);
}

/// Screen readers learn that the tree has the focus, but not which row.
void TreePanel::sayCurrent() {
  if (!QAccessible::isActive() || !m_view->hasFocus()) return;
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(m_view);
  QAccessibleTableInterface* rows = seen ? seen->tableInterface() : nullptr;
  if (!rows) return;
  // Before the view has its rows in place again, a selected row may have no cell.
  m_view->visualRect(m_view->currentIndex());
  const auto cells = rows->selectedCells();
  if (cells.isEmpty() || !cells.front()) return;
  QAccessibleEvent focused(cells.front(), QAccessible::Focus);
  QAccessible::updateAccessibility(&focused);
}

bool TreePanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, this, &TreePanel::sayCurrent);
  if (event->type() == QEvent::ContextMenu)
    m_menuByKeys = static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Delete)) {
    deleteSelected();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace korvel::ui
