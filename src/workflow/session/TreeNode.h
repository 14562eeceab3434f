// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class AlbumNode;
class NodeVisitor;
class QBAlbum;
class QBSong;
class QBSongNode;

/// A node of the tree of albums, songs, tunings and instruments: what it shows, and what a user
/// does to that.
class TreeNode {
 public:
  enum class Type { other = 0, song = 1, album = 2 };

  virtual ~TreeNode() = default;
  virtual Type type() const { return Type::other; }
  virtual std::string title() const { return ""; }
  /// The title, with what the tree tells beside it.
  virtual std::string description() const { return title(); }
  /// Whether it is the one in use, as of the tunings and the instruments one is.
  virtual bool isSelected() const { return false; }
  /// What it shows has been deleted.
  virtual bool isGone() const { return false; }
  /// None unless that is what it shows.
  virtual QBSong* song() const { return nullptr; }
  virtual QBAlbum* album() const { return nullptr; }
  virtual QBSongNode* songNode() { return nullptr; }
  virtual AlbumNode* albumNode() { return nullptr; }
  virtual void accept(NodeVisitor& /*visitor*/) {}

  /// It was chosen in the tree.
  virtual void mouseClick() {}
  /// Throws EditRefused for a title that cannot be.
  virtual void rename(const std::string& /*title*/) {}
  /// Whether it can be deleted in the tree itself.
  virtual bool canDelete() const { return false; }
  /// At once, without a question. Throws EditRefused while it has to stay.
  virtual void remove() {}
};

}  // namespace korvel
