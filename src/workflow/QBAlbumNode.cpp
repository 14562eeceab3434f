// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBAlbumNode.h"

#include <algorithm>

#include "model/QBAlbum.h"
#include "model/QBSong.h"
#include "workflow/QBSession.h"
#include "workflow/QBSongNode.h"

namespace korvel {

QBAlbumNode::QBAlbumNode(QBAlbum* album) : m_album(album) {}

QBAlbumNode::~QBAlbumNode() = default;

std::shared_ptr<QBAlbumNode> QBAlbumNode::withSongs(QBAlbum* album) {
  auto node = std::make_shared<QBAlbumNode>(album);
  for (QBSong* song : album->songs()) node->addChild(song);
  return node;
}

std::string QBAlbumNode::title() const { return m_album->name(); }

void QBAlbumNode::followSongs() {
  const Children before = std::move(m_children);
  m_children.clear();
  for (QBSong* song : m_album->songs()) {
    if (QBSession::session().isScratch(*song)) continue;
    const auto known =
        std::ranges::find_if(before, [&](const auto& child) { return child->song() == song; });
    if (known != before.end())
      m_children.push_back(*known);
    else
      addChild(song);
  }
}

QBSongNode* QBAlbumNode::addChild(QBSong* song) {
  m_children.push_back(std::make_shared<QBSongNode>(song, weak_from_this()));
  return m_children.back().get();
}

void QBAlbumNode::removeChild(const QBSongNode& child) {
  std::erase_if(m_children, [&](const auto& other) { return other.get() == &child; });
}

QBSongNode* QBAlbumNode::findChild(const QBSong* song) const {
  const auto found =
      std::ranges::find_if(m_children, [&](const auto& child) { return child->song() == song; });
  return found == m_children.end() ? nullptr : found->get();
}

}  // namespace korvel
