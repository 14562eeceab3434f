// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/LibraryTree.h"

#include <algorithm>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/TuningNode.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

/// Nodes for the objects in their order; of those that are there already, the same ones.
template <class Node, class Object>
void follow(LibraryTree::Nodes<Node>& nodes, const QBTabMgr::List<Object>& objects,
            Object* (Node::*shown)() const, auto... handed) {
  LibraryTree::Nodes<Node> present;
  for (const auto& object : objects) {
    const auto known = std::ranges::find_if(
        nodes, [&](const auto& node) { return (node.get()->*shown)() == object.get(); });
    present.push_back(known != nodes.end() ? *known
                                           : std::make_shared<Node>(object.get(), handed...));
  }
  nodes = std::move(present);
}

bool shows(const LibraryTree::Nodes<AlbumNode>& albums, const TreeNode* node) {
  return std::ranges::any_of(albums, [&](const auto& album) {
    return album.get() == node || std::ranges::any_of(album->children(), [&](const auto& song) {
             return song.get() == node;
           });
  });
}

}  // namespace

LibraryTree::LibraryTree(QBTabMgr& db, QBSession& session) : m_db(db), m_session(session) {
  refresh();
}

LibraryTree::~LibraryTree() { m_session.setActiveTreeNode(nullptr); }

void LibraryTree::refresh() {
  const auto active = activeNode();
  follow(m_albums, m_db.albums(), &AlbumNode::album, std::ref(m_session));
  for (const auto& album : m_albums) album->followSongs();
  follow(m_tunings, m_db.tunings(), &TuningNode::tuning, std::ref(m_session));
  follow(m_instruments, m_db.instruments(), &InstrumentNode::instrument);
  if (active && !shows(m_albums, active.get())) m_session.setActiveTreeNode(nullptr);
}

std::shared_ptr<const TreeNode> LibraryTree::activeNode() const {
  if (QBSongNode* song = m_session.activeSongNode()) return song->shared_from_this();
  if (AlbumNode* album = m_session.activeAlbumNode()) return album->shared_from_this();
  return nullptr;
}

std::shared_ptr<AlbumNode> LibraryTree::find(const QBAlbum* album) const {
  const auto found =
      std::ranges::find_if(m_albums, [&](const auto& node) { return node->album() == album; });
  return found == m_albums.end() ? nullptr : *found;
}

QBSongNode* LibraryTree::find(const QBSong* song) const {
  const auto album = song ? find(song->album()) : nullptr;
  return album ? album->findChild(song) : nullptr;
}

}  // namespace korvel
