// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/persistence/Ref.h"
#include "workflow/arranging/SongCommands.h"
#include "workflow/session/TreeNode.h"

namespace korvel {

namespace platform {
class UndoGroup;
}

class AlbumNode;
class QBSession;
class QBSong;

/// The node of a song, and the commands that a user can give it (`songMenu`).
///
/// A command that derives a song hangs the new one beside this, makes it the active song, logs its
/// sentence and saves the store. What goes wrong is reported through the session under the
/// command's name; a song that was made by then stays. Each command is one undoable action; one
/// that cannot be saved is taken back and throws StoreError. Nodes are kept by shared pointers.
class QBSongNode final : public TreeNode, public std::enable_shared_from_this<QBSongNode> {
 public:
  QBSongNode(QBSong* song, std::weak_ptr<AlbumNode> parent, QBSession& session);
  ~QBSongNode() override;

  Type type() const override { return Type::song; }
  std::string title() const override;
  bool isGone() const override;
  QBSong* song() const override;
  QBSession& session() const { return m_session; }
  QBSongNode* songNode() override { return this; }
  void accept(NodeVisitor& visitor) override;
  /// Makes this the active song.
  void mouseClick() override;
  void rename(const std::string& title) override;
  bool canDelete() const override { return true; }
  void remove() override;

  /// Answers whether all went well. std::invalid_argument for a command that there is none of.
  bool perform(std::string_view command);
  /// For players, whatever fails leaves nothing, EditRefused comes out when nothing would be left
  /// to play, and the last of the songs that a command made becomes the active one.
  bool perform(const SongCommand& command, Manner manner = Manner::literal);
  /// The structure of the context menu, which is every song's.
  std::span<const SongMenuSection> createContextMenu() const { return songMenu(); }

  /// Hangs a new song beside this one and has the tree drawn anew.
  void addSongToParent(QBSong* song);

  // Commands that do more, or less, than to derive a song. They let exceptions out.
  /// Six voices, their left hand, its right hand: three songs that all stay. The active song does
  /// not change.
  void extractChainStandard();
  /// Asks where to, through the session's save panel; nothing happens without an answer.
  void exportAsFile();
  /// The copy becomes the active song. Not saved.
  void copySong();
  /// At once, without a question. Not saved.
  void deleteSong();

 private:
  void derive(const SongCommand& command, Manner manner);
  void performForPlayers(const SongCommand& command);
  void takeBack(platform::UndoGroup& group);

  platform::Ref<QBSong> m_song;
  std::weak_ptr<AlbumNode> m_parent;
  QBSession& m_session;
};

}  // namespace korvel
