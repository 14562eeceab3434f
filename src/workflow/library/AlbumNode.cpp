// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/AlbumNode.h"

#include <algorithm>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/NodeVisitor.h"
#include "workflow/session/QBSession.h"

namespace korvel {

AlbumNode::AlbumNode(QBAlbum* album, QBSession& session) : m_album(album), m_session(session) {}

AlbumNode::AlbumNode(QBAlbum* album) : AlbumNode(album, QBSession::session()) {}

AlbumNode::~AlbumNode() = default;

std::shared_ptr<AlbumNode> AlbumNode::withSongs(QBAlbum* album) {
  auto node = std::make_shared<AlbumNode>(album);
  for (QBSong* song : album->songs()) node->addChild(song);
  return node;
}

std::string AlbumNode::title() const { return m_album->name(); }

bool AlbumNode::isGone() const { return m_album->isDeleted(); }

void AlbumNode::accept(NodeVisitor& visitor) { visitor.visit(*this); }

void AlbumNode::rename(const std::string& title) { renameAlbum(*m_album, title); }

void AlbumNode::remove() { deleteAlbum(*m_album); }

void AlbumNode::followSongs() {
  const Children before = std::move(m_children);
  m_children.clear();
  for (QBSong* song : m_album->songs()) {
    if (m_session.isScratch(*song)) continue;
    const auto known =
        std::ranges::find_if(before, [&](const auto& child) { return child->song() == song; });
    if (known != before.end())
      m_children.push_back(*known);
    else
      addChild(song);
  }
}

QBSongNode* AlbumNode::addChild(QBSong* song) {
  m_children.push_back(std::make_shared<QBSongNode>(song, weak_from_this(), m_session));
  return m_children.back().get();
}

void AlbumNode::removeChild(const QBSongNode& child) {
  std::erase_if(m_children, [&](const auto& other) { return other.get() == &child; });
}

QBSongNode* AlbumNode::findChild(const QBSong* song) const {
  const auto found =
      std::ranges::find_if(m_children, [&](const auto& child) { return child->song() == song; });
  return found == m_children.end() ? nullptr : found->get();
}

}  // namespace korvel
