// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/TreeModel.h"

#include <QFont>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/TuningNode.h"
#include "workflow/session/SongInWork.h"

namespace korvel::ui {
namespace {

const QString kSongs = "application/x-korvel-songs";
const QString kFiles = "text/uri-list";

/// Titles of groups, in the order of `Group`.
QString titleOf(TreeModel::Group group) {
  if (group == TreeModel::Group::albums) return TreeModel::tr("Albums");
  if (group == TreeModel::Group::tunings) return TreeModel::tr("Tunings");
  return TreeModel::tr("Instruments");
}

/// In one line, whatever the name of the imported file had in it.
QString shownTitle(const TreeNode& node) {
  QString title = toText(node.description());
  for (QChar& each : title)
    if (!each.isPrint()) each = u' ';
  return title;
}

/// A song that nobody hears to its end at the moment.
bool isUnheard(const TreeNode& node) {
  const QBSong* song = node.song();
  return song && !song->isWhole() && !SongInWork::is(*song);
}

template <class Node>
std::vector<std::shared_ptr<TreeNode>> generic(const LibraryTree::Nodes<Node>& nodes) {
  return {nodes.begin(), nodes.end()};
}

}  // namespace

struct TreeModel::Item {
  Item* parent = nullptr;
  Group group = Group::albums;
  std::shared_ptr<TreeNode> node;  ///< None of a group.
  std::vector<std::unique_ptr<Item>> children;

  Item* add(std::size_t row, Group of, std::shared_ptr<TreeNode> shown) {
    auto item = std::make_unique<Item>();
    item->parent = this;
    item->group = of;
    item->node = std::move(shown);
    return children.insert(children.begin() + static_cast<std::ptrdiff_t>(row), std::move(item))
        ->get();
  }
  int row() const {
    const auto& all = parent->children;
    return static_cast<int>(std::ranges::find(all, this, &std::unique_ptr<Item>::get) -
                            all.begin());
  }
  bool isGroup() const { return !node; }
};

TreeModel::TreeModel(LibraryTree& library, QObject* parent)
    : QAbstractItemModel(parent), m_library(library), m_root(std::make_unique<Item>()) {
  for (const Group group : {Group::albums, Group::tunings, Group::instruments})
    m_root->add(m_root->children.size(), group, nullptr);
  refresh();
}

TreeModel::~TreeModel() = default;

// ---- following the library

void TreeModel::refresh() {
  m_library.refresh();
  auto& groups = m_root->children;
  follow(*groups[0], generic(m_library.albums()));
  for (std::size_t row = 0; row < m_library.albums().size(); ++row)
    follow(*groups[0]->children[row], generic(m_library.albums()[row]->children()));
  follow(*groups[1], generic(m_library.tunings()));
  follow(*groups[2], generic(m_library.instruments()));
  for (const auto& group : groups)
    if (!group->children.empty())
      emit dataChanged(indexOfItem(*group->children.front()), indexOfItem(*group->children.back()));
}

void TreeModel::follow(Item& parent, const Nodes& nodes) {
  removeGone(parent, nodes);
  insertNew(parent, nodes);
  if (!parent.children.empty() && parent.parent != m_root.get())
    emit dataChanged(indexOfItem(*parent.children.front()), indexOfItem(*parent.children.back()));
}

/// What is not in its place among the others has gone as well, and comes again.
void TreeModel::removeGone(Item& parent, const Nodes& nodes) {
  auto next = nodes.begin();
  for (std::size_t row = 0; row < parent.children.size();) {
    const auto found = std::find(next, nodes.end(), parent.children[row]->node);
    if (found != nodes.end()) {
      next = found + 1;
      ++row;
      continue;
    }
    beginRemoveRows(indexOfItem(parent), static_cast<int>(row), static_cast<int>(row));
    parent.children.erase(parent.children.begin() + static_cast<std::ptrdiff_t>(row));
    endRemoveRows();
  }
}

void TreeModel::insertNew(Item& parent, const Nodes& nodes) {
  for (std::size_t row = 0; row < nodes.size(); ++row) {
    if (row < parent.children.size() && parent.children[row]->node == nodes[row]) continue;
    beginInsertRows(indexOfItem(parent), static_cast<int>(row), static_cast<int>(row));
    parent.add(row, parent.group, nodes[row]);
    endInsertRows();
  }
}

void TreeModel::setPlaying(QBSong* song) {
  if (song == m_playing) return;
  const QModelIndex before = indexOf(m_playing);
  m_playing = song;
  for (const QModelIndex& changed : {before, indexOf(song)})
    if (changed.isValid()) emit dataChanged(changed, changed);
}

// ---- items and their places

TreeModel::Item& TreeModel::itemOf(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Item*>(index.internalPointer()) : *m_root;
}

QModelIndex TreeModel::indexOfItem(const Item& item) const {
  return item.parent ? createIndex(item.row(), 0, &item) : QModelIndex();
}

QModelIndex TreeModel::indexOfGroup(Group group) const { return index(static_cast<int>(group), 0); }

QModelIndex TreeModel::indexOf(const TreeNode* node) const {
  const auto within = [&](const Item& parent, const auto& self) -> QModelIndex {
    for (const auto& child : parent.children) {
      if (child->node && child->node.get() == node) return indexOfItem(*child);
      const QModelIndex found = self(*child, self);
      if (found.isValid()) return found;
    }
    return {};
  };
  return node ? within(*m_root, within) : QModelIndex();
}

QModelIndex TreeModel::indexOf(const QBSong* song) const { return indexOf(m_library.find(song)); }

std::shared_ptr<TreeNode> TreeModel::nodeOf(const QModelIndex& index) const {
  return itemOf(index).node;
}

QBSong* TreeModel::songAt(const QModelIndex& index) const {
  const auto node = nodeOf(index);
  return node ? node->song() : nullptr;
}

bool TreeModel::isGroup(const QModelIndex& index, Group group) const {
  return index.isValid() && itemOf(index).isGroup() && itemOf(index).group == group;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, itemOf(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
  return child.isValid() ? indexOfItem(*itemOf(child).parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(itemOf(parent).children.size());
}

int TreeModel::columnCount(const QModelIndex&) const { return 1; }

// ---- what is shown and edited

QString TreeModel::markedTitle(const Item& item, int role) const {
  if (item.isGroup()) return titleOf(item.group);
  const bool spoken = role == Qt::AccessibleTextRole;
  QString title = shownTitle(*item.node);
  if (isUnheard(*item.node))
    title = spoken ? tr("%1, not heard to its end").arg(title) : tr("%1 (not whole)").arg(title);
  if (m_playing && item.node->song() == m_playing)
    return spoken ? tr("%1, playing").arg(title) : "▶ " + title;
  if (!item.node->isSelected()) return title;
  return spoken ? tr("%1, selected").arg(title) : "✓ " + title;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Item& item = itemOf(index);
  const bool selected = item.node && item.node->isSelected();
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return markedTitle(item, role);
  if (role == Qt::ToolTipRole && item.node) return shownTitle(*item.node).toHtmlEscaped();
  if (role == Qt::EditRole && item.node) return toText(item.node->title());
  if (role == Qt::FontRole && (item.isGroup() || selected)) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

void TreeModel::move(QBSong& song, QBAlbum& album) {
  const QString refusal = refusalOf([&] { moveSong(song, album); });
  if (!refusal.isEmpty()) return emit refused(refusal);
  emit titleChanged();
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const auto node = nodeOf(index);
  if (role != Qt::EditRole || !node) return false;
  try {
    node->rename(value.toString().trimmed().toStdString());
    emit titleChanged();
    return true;
  } catch (const platform::UserError& reason) {
    emit refused(translated(reason));
    return false;
  }
}

QVariant TreeModel::headerData(int, Qt::Orientation, int role) const {
  return role == Qt::DisplayRole ? tr("Library") : QVariant();
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
  const Item& item = itemOf(index);
  if (item.node) flags |= Qt::ItemIsEditable;
  if (item.node && item.node->song()) flags |= Qt::ItemIsDragEnabled;
  return flags;
}

// ---- drag and drop

Qt::DropActions TreeModel::supportedDropActions() const { return Qt::CopyAction | Qt::MoveAction; }

QStringList TreeModel::mimeTypes() const { return {kSongs, kFiles}; }

/// Songs are dragged within this window only, so their rows are enough.
QMimeData* TreeModel::mimeData(const QModelIndexList& indexes) const {
  QByteArray ids;
  for (const QModelIndex& index : indexes)
    if (const QBSong* song = songAt(index))
      ids += QByteArray::number(static_cast<qlonglong>(song->objectId())) + ' ';
  auto* data = new QMimeData;
  data->setData(kSongs, ids);
  return data;
}

QStringList TreeModel::filesOf(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls())
    files.append(url.isLocalFile() ? url.toLocalFile() : url.toString());
  return files;
}

/// The album that something dropped there goes into; invalid when there is none.
QModelIndex TreeModel::albumAt(const QModelIndex& index) const {
  const auto node = nodeOf(index);
  if (!node) return {};
  if (node->album()) return index;
  return node->song() ? index.parent() : QModelIndex();
}

bool TreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                const QModelIndex& parent) const {
  return data->hasUrls() || (data->hasFormat(kSongs) && albumAt(parent).isValid());
}

bool TreeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                             const QModelIndex& parent) {
  if (!canDropMimeData(data, action, row, column, parent)) return false;
  const QModelIndex into = albumAt(parent);
  if (data->hasUrls()) {
    emit filesDropped(filesOf(*data), into);
    return true;
  }
  const platform::Ref<QBAlbum> album = nodeOf(into)->album();
  for (const QByteArray& id : data->data(kSongs).split(' '))
    for (const auto& from : LibraryTree::Nodes<AlbumNode>(m_library.albums()))
      for (const auto& song : from->album()->songs().snapshot())
        if (!id.isEmpty() && song->objectId() == id.toLongLong()) move(*song, *album);
  // The store has moved them, and the tree followed: the view must not remove rows itself.
  return false;
}

}  // namespace korvel::ui
