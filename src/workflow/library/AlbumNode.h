// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/session/TreeNode.h"

namespace korvel {

class QBAlbum;
class QBSession;
class QBSong;
class QBSongNode;

/// The node of an album, with a node for each of its songs. Kept by shared pointers.
class AlbumNode final : public TreeNode, public std::enable_shared_from_this<AlbumNode> {
 public:
  using Children = std::vector<std::shared_ptr<QBSongNode>>;

  /// A node that has no songs below it yet.
  AlbumNode(QBAlbum* album, QBSession& session);
  /// In the program's session.
  explicit AlbumNode(QBAlbum* album);
  ~AlbumNode() override;
  /// With the songs that the album has now.
  static std::shared_ptr<AlbumNode> withSongs(QBAlbum* album);

  Type type() const override { return Type::album; }
  std::string title() const override;
  bool isGone() const override;
  QBAlbum* album() const override { return m_album; }
  AlbumNode* albumNode() override { return this; }
  void accept(NodeVisitor& visitor) override;
  void rename(const std::string& title) override;
  bool canDelete() const override { return true; }
  void remove() override;

  const Children& children() const { return m_children; }
  /// The songs that the album has now, in its order, but for those that a running job only tries
  /// things on. Nodes that are there already stay the same.
  void followSongs();
  QBSongNode* addChild(QBSong* song);
  void removeChild(const QBSongNode& child);
  /// None when no child shows the song.
  QBSongNode* findChild(const QBSong* song) const;

 private:
  platform::Ref<QBAlbum> m_album;
  QBSession& m_session;
  Children m_children;
};

}  // namespace korvel
