// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

#include "ui/library/TreeModel.h"
#include "ui/library/TreeOrder.h"
#include "workflow/session/SessionViews.h"

class QLineEdit;
class QMenu;
class QTreeView;

namespace korvel::ui {

class LibraryActions;

/// The library with a field to search in it. What is selected becomes the session's active node,
/// and a song that is selected is shown.
class TreePanel final : public QWidget, public TreeView {
  Q_OBJECT

 public:
  /// Both outlive the panel.
  TreePanel(LibraryTree& library, LibraryActions& actions, QWidget* parent = nullptr);

  void refreshAllContents() override;
  /// Selects the song's row without selecting the song anew.
  void showSong(const QBSong* song);
  void focusSearch();
  /// The groups and albums that are open, each by a key of its own; a search does not count.
  QStringList openBranches() const;
  void setOpenBranches(const QStringList& keys);
  void renameCurrent();
  /// Entries of which one is chosen: how the songs stand. Remembered from one start to the next.
  void addOrders(QMenu& menu);
  TreeModel& model() { return m_model; }
  QTreeView& view() { return *m_view; }

 signals:
  void refused(const QString& text);
  /// Of a song, an album or another node, by the user.
  void titleChanged();
  /// A song was chosen by Enter or a double click.
  void songActivated();
  /// A song was chosen by mouse or Enter, even when it was selected before.
  void songClicked(QBSong* song);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void search(const QString& text);
  void forEachBranch(const std::function<void(const QModelIndex&, const QString& key)>& act) const;
  void select(const QModelIndex& current);
  void showMenu(const QPoint& position);
  std::vector<std::shared_ptr<TreeNode>> selectedNodes() const;
  std::vector<platform::Ref<QBSong>> selectedSongs() const;
  void fillMenuOfSelected(QMenu& menu);
  void deleteSelected();
  void sayCurrent();
  void rename(const TreeNode* node);
  void drop(const QStringList& files, const QModelIndex& into);
  QModelIndex currentIndex() const;

  TreeModel m_model;
  TreeOrder m_filter;
  LibraryActions& m_actions;
  QLineEdit* m_search;
  QTreeView* m_view;
  bool m_following = false;
  bool m_menuByKeys = false;
  bool m_searching = false;
  QStringList m_openBefore;  ///< The branches that were open when the search began.
};

}  // namespace korvel::ui
