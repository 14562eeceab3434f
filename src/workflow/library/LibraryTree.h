// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

namespace korvel {

class QBAlbum;
class AlbumNode;
class InstrumentNode;
class QBSession;
class QBSong;
class QBSongNode;
class QBTabMgr;
class TreeNode;
class TuningNode;

/// The nodes of all that a user sees in the store: albums with their songs, tunings, instruments.
/// A node stays the same object for as long as the store holds what it shows.
class LibraryTree {
 public:
  template <class Node>
  using Nodes = std::vector<std::shared_ptr<Node>>;

  /// As the store is now. Both outlive the tree.
  LibraryTree(QBTabMgr& db, QBSession& session);
  ~LibraryTree();

  /// Follows the store. A node that has gone is not the session's active one any more. Songs that a
  /// running job only tries things on are left out.
  void refresh();

  QBTabMgr& db() const { return m_db; }
  QBSession& session() const { return m_session; }
  const Nodes<AlbumNode>& albums() const { return m_albums; }
  const Nodes<TuningNode>& tunings() const { return m_tunings; }
  const Nodes<InstrumentNode>& instruments() const { return m_instruments; }
  /// None when the tree does not show it.
  std::shared_ptr<AlbumNode> find(const QBAlbum* album) const;
  QBSongNode* find(const QBSong* song) const;

 private:
  std::shared_ptr<const TreeNode> activeNode() const;

  QBTabMgr& m_db;
  QBSession& m_session;
  Nodes<AlbumNode> m_albums;
  Nodes<TuningNode> m_tunings;
  Nodes<InstrumentNode> m_instruments;
};

}  // namespace korvel
