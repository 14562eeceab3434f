// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <functional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "tab/layout/LoopRange.h"
#include "workflow/editing/CopiedChord.h"

namespace korvel {
class QBSong;
class SongEditor;
}  // namespace korvel

namespace korvel::ui {

class DoubtMenu;
class FindBar;
class FingerMenu;
class FretboardView;
class RhythmMenu;
class TablatureView;
class TreePanel;

/// Edits of the song that is shown, at the tablature's cursor and in the library, and undo and redo
/// of everything.
class EditMenu final : public QMenu {
  Q_OBJECT

 public:
  struct Views {
    TablatureView& tablature;
    FretboardView& fretboard;
    FindBar& find;
    TreePanel& tree;
  };

  /// Takes the edits that the views tell of, too; they outlive this.
  explicit EditMenu(const Views& views, QWidget* parent = nullptr);

  /// There is nothing to edit without a song, or in one that is locked, as while it plays.
  void setSong(QBSong* song);
  void setLocked(bool locked);
  /// Its submenus.
  RhythmMenu& rhythm() { return *m_rhythm; }
  DoubtMenu& doubts() { return *m_doubts; }

 signals:
  /// The song has changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);
  /// The title of what is selected in the library is to be edited there.
  void renameWanted();

 private:
  void addUndo();
  void addClipboard();
  void addMoves();
  void addToneEdits();
  void addChordEdits();
  void addFingers();
  void addRhythm();
  void addDoubts();
  void addSearches(const Views& views);
  void addLibraryEdits(TreePanel& tree);
  void listAlbums(QMenu& menu, TreePanel& tree);
  QAction* addEdit(const QString& title, const QKeySequence& keys,
                   const std::function<void()>& act);
  void connectViews(FretboardView& fretboard);
  /// Makes an edit at the cursor and tells why it was refused.
  void attempt(const std::function<void(SongEditor&)>& edit);
  void attemptInsertion(const std::function<void(SongEditor&, int)>& insert);
  void perform(const std::function<void(SongEditor&)>& edit);
  void guarded(const std::function<void()>& act);
  void deleteChosen();
  /// The selected chords, or the one under the cursor when none are.
  ChordSpan chosen() const;
  void copy();
  void paste();
  template <class Chords>
  void paste(const Chords& chords);
  void moveTone(int strings);
  void nameChord();
  void chooseShape();
  void undo();
  void update();

  TablatureView& m_tablature;
  platform::Ref<QBSong> m_song;
  std::vector<CopiedChord> m_copied;
  QString m_copiedText;  ///< What the clipboard has as long as they can be pasted.
  bool m_locked = false;
  QAction* m_undo = nullptr;
  QAction* m_redo = nullptr;
  QMenu* m_duration = nullptr;
  FingerMenu* m_fingers = nullptr;
  RhythmMenu* m_rhythm = nullptr;
  DoubtMenu* m_doubts = nullptr;
  QList<QAction*> m_edits;
};

}  // namespace korvel::ui
