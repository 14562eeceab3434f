// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;

/// A node of the tree of albums, songs and tunings.
class QBTreeNode {
 public:
  enum class Type { other = 0, song = 1, album = 2 };

  virtual ~QBTreeNode() = default;
  virtual Type type() const { return Type::other; }
};

/// The node of an album.
class QBAlbumNode final : public QBTreeNode {
 public:
  explicit QBAlbumNode(QBAlbum* album);
  ~QBAlbumNode() override;

  Type type() const override { return Type::album; }
  QBAlbum* album() const { return m_album; }

 private:
  platform::Ref<QBAlbum> m_album;
};

}  // namespace korvel
