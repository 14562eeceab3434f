// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/library/LibraryTree.h"

namespace korvel {
class QBAlbum;
class QBSong;
class TreeNode;
}  // namespace korvel

namespace korvel::ui {

/// The library as a tree of three groups: albums with their songs, tunings, instruments. Titles are
/// edited in place, songs are dragged from album to album, files are dropped anywhere.
class TreeModel final : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum class Group { albums, tunings, instruments };

  /// The library must outlive the model.
  explicit TreeModel(LibraryTree& library, QObject* parent = nullptr);
  ~TreeModel() override;

  /// Has the library follow the store, and tells the views what has come and gone.
  void refresh();
  /// Marks the song that plays, or none.
  void setPlaying(QBSong* song);

  QModelIndex indexOfGroup(Group group) const;
  /// Invalid when the tree does not show it.
  QModelIndex indexOf(const QBSong* song) const;
  QModelIndex indexOf(const TreeNode* node) const;
  /// None for a group.
  std::shared_ptr<TreeNode> nodeOf(const QModelIndex& index) const;
  /// None for what is no song.
  QBSong* songAt(const QModelIndex& index) const;
  /// Whether the index is that of the group itself.
  bool isGroup(const QModelIndex& index, Group group) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// The view hides it, but screen readers say it.
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Qt::DropActions supportedDropActions() const override;
  QStringList mimeTypes() const override;
  /// Paths of what is dragged; what is no file of this machine by its address.
  static QStringList filesOf(const QMimeData& data);
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 signals:
  /// What the user wanted cannot be; text: why, in one line.
  void refused(const QString& text);
  /// By the user: of a node, or of a song that was moved to where its title was taken.
  void titleChanged();
  /// into: invalid for a new album.
  void filesDropped(const QStringList& files, const QModelIndex& into);

 private:
  struct Item;
  using Nodes = std::vector<std::shared_ptr<TreeNode>>;

  void move(QBSong& song, QBAlbum& album);
  Item& itemOf(const QModelIndex& index) const;
  QModelIndex indexOfItem(const Item& item) const;
  void follow(Item& parent, const Nodes& nodes);
  void removeGone(Item& parent, const Nodes& nodes);
  void insertNew(Item& parent, const Nodes& nodes);
  QString markedTitle(const Item& item, int role) const;
  QModelIndex albumAt(const QModelIndex& index) const;

  LibraryTree& m_library;
  std::unique_ptr<Item> m_root;
  platform::Ref<QBSong> m_playing;
};

}  // namespace korvel::ui
