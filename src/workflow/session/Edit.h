// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"
#include "platform/persistence/UndoManager.h"

namespace korvel {

class QBSession;
class QBSong;
class QBTabMgr;

/// One edit of a user: an undoable action, which counts once it is done.
///
///     Edit edit(song, phrase("UndoAction", "Rename Song"));
///     song.setTitle(title);
///     edit.done(phrase("Log", "Song renamed."));
///
/// When the scope ends without that, because there was nothing to do or something was thrown,
/// everything is as it was before, what could be redone too. Inside of another edit it is a part of
/// that one, which decides what becomes of the whole. Main thread only.
class Edit {
 public:
  /// Of albums, tunings or instruments.
  explicit Edit(const platform::Phrase& title);
  /// Of a song.
  Edit(QBSong& song, const platform::Phrase& title);
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;
  ~Edit();

  /// Throws EditRefused when the store cannot be written; edits throw that from the start.
  static void requireWritable(const QBTabMgr& db);

  QBTabMgr& db() const { return m_db; }
  QBSession& session() const { return m_session; }

  /// Is one action with the one before it, if that was such an edit of the same song: undo then
  /// takes back all of them.
  void joinAlike();
  /// So that the action can be recognised when it is the latest one.
  void setKind(const platform::ActionKind& kind) { m_group.setKind(kind); }

  /// Draws the tablature of the song anew, if it has chords.
  void redraw();

  /// Saves. Throws StoreError when that fails, and is not done then.
  void save();
  /// As `save`, and then logs the line and has the tree drawn anew: whoever reads the line can rely
  /// on the edit.
  void done(const platform::UserText& line);

 private:
  Edit(QBTabMgr& db, QBSong* song, const platform::Phrase& title);
  void rollBack();

  QBTabMgr& m_db;
  QBSession& m_session;
  const platform::Ref<QBSong> m_song;
  platform::UndoGroup m_group;
  bool m_done = false;
};

}  // namespace korvel
