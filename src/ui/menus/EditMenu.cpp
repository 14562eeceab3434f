// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/EditMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <array>
#include <utility>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/persistence/UndoManager.h"
#include "tab/layout/ChordSearch.h"
#include "tab/text/TabReader.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/ShapeDialog.h"
#include "ui/dialogs/chords/NameDialog.h"
#include "ui/library/TreePanel.h"
#include "ui/menus/DoubtMenu.h"
#include "ui/menus/FingerMenu.h"
#include "ui/menus/RhythmMenu.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"
#include "ui/window/FindBar.h"
#include "workflow/editing/NamedPassages.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/ToneToggles.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct Duration {
  int sixteenths;
  const char* name;
};

constexpr std::array kDurations{
    Duration{1, QT_TRANSLATE_NOOP("Duration", "Sixteenth")},
    Duration{2, QT_TRANSLATE_NOOP("Duration", "Eighth")},
    Duration{3, QT_TRANSLATE_NOOP("Duration", "Dotted Eighth")},
    Duration{4, QT_TRANSLATE_NOOP("Duration", "Quarter")},
    Duration{6, QT_TRANSLATE_NOOP("Duration", "Dotted Quarter")},
    Duration{8, QT_TRANSLATE_NOOP("Duration", "Half")},
    Duration{12, QT_TRANSLATE_NOOP("Duration", "Dotted Half")},
    Duration{16, QT_TRANSLATE_NOOP("Duration", "Whole")},
};

platform::UndoManager& undoManager() { return QBTabMgr::db().context().undoManager(); }

QString titled(const QString& plain, const QString& named, const platform::UserText& action) {
  return action.empty() ? plain : named.arg(translated(action));
}

}  // namespace

EditMenu::EditMenu(const Views& views, QWidget* parent)
    : QMenu(tr("&Edit"), parent), m_tablature(views.tablature) {
  addUndo();
  addClipboard();
  addToneEdits();
  addChordEdits();
  addFingers();
  addRhythm();
  addDoubts();
  addSearches(views);
  addLibraryEdits(views.tree);
  connectViews(views.fretboard);
  connect(this, &QMenu::aboutToShow, this, &EditMenu::update);
  // Their keys work whatever the menu said when it was open.
  connect(this, &QMenu::aboutToHide, this, [this] {
    for (QAction* action : {m_undo, m_redo}) action->setEnabled(true);
  });
  setSong(nullptr);
}

// ---- entries

void EditMenu::addUndo() {
  m_undo = addAction(tr("&Undo"), QKeySequence::Undo, this, &EditMenu::undo);
  m_redo = addAction(tr("&Redo"), QKeySequence::Redo, this,
                     [this] { guarded([] { QBSession::session().redo(); }); });
  addSeparator();
}

void EditMenu::addClipboard() {
  addAction(tr("&Copy"), QKeySequence::Copy, this, &EditMenu::copy);
  addEdit(tr("&Paste Chords"), QKeySequence::Paste, [this] { paste(); });
  addAction(tr("Select &All"), QKeySequence::SelectAll, &m_tablature, &TablatureView::selectAll);
  addSeparator();
}

QAction* EditMenu::addEdit(const QString& title, const QKeySequence& keys,
                           const std::function<void()>& act) {
  m_edits.append(addAction(title, keys, this, act));
  return m_edits.last();
}

void EditMenu::addToneEdits() {
  addEdit(tr("Remove &Tone"), {}, [this] {
    attempt([this](SongEditor& editor) {
      editor.removeTone(m_tablature.cursorChord(), m_tablature.cursorString());
    });
  });
  addEdit(tr("&Silence or Sound Tone"), tr("Ctrl+T"), [this] {
    attempt([this](SongEditor& editor) {
      toggleActive(editor, m_tablature.cursorChord(), m_tablature.cursorString());
    });
  });
  addMoves();
  addSeparator();
}

void EditMenu::addMoves() {
  addEdit(tr("Tone to Hi&gher String"), tr("Alt+Up"), [this] { moveTone(1); });
  addEdit(tr("Tone to Lo&wer String"), tr("Alt+Down"), [this] { moveTone(-1); });
}

void EditMenu::addChordEdits() {
  addEdit(tr("Set Chord &Name ..."), tr("Ctrl+M"), [this] { nameChord(); });
  addEdit(tr("Set Ch&ord ..."), tr("Ctrl+Shift+M"), [this] { chooseShape(); });
  m_duration = addMenu(tr("Change &Duration"));
  for (const Duration& duration : kDurations)
    m_duration->addAction(QCoreApplication::translate("Duration", duration.name), this,
                          [this, duration] {
                            attempt([this, duration](SongEditor& editor) {
                              editor.setDuration(m_tablature.cursorChord(), duration.sixteenths);
                            });
                          });
  addEdit(tr("Insert Chord &Before"), tr("Shift+Ins"), [this] {
    attemptInsertion([](SongEditor& editor, int chord) { editor.insertChordBefore(chord); });
  });
  addEdit(tr("&Insert Chord After"), tr("Ins"), [this] {
    attemptInsertion([](SongEditor& editor, int chord) { editor.insertChordAfter(chord); });
  });
  addEdit(tr("Delete C&hord"), tr("Ctrl+Del"), [this] { deleteChosen(); });
}

void EditMenu::addFingers() {
  m_fingers = new FingerMenu(m_tablature, this);
  addMenu(m_fingers);
  connect(m_fingers, &FingerMenu::edited, this, &EditMenu::edited);
  connect(m_fingers, &FingerMenu::refused, this, &EditMenu::refused);
}

void EditMenu::addRhythm() {
  m_rhythm = new RhythmMenu(m_tablature, this);
  addMenu(m_rhythm);
  connect(m_rhythm, &RhythmMenu::edited, this, &EditMenu::edited);
  connect(m_rhythm, &RhythmMenu::refused, this, &EditMenu::refused);
}

void EditMenu::addDoubts() {
  m_doubts = new DoubtMenu(m_tablature, this);
  addMenu(m_doubts);
  connect(m_doubts, &DoubtMenu::edited, this, &EditMenu::edited);
  connect(m_doubts, &DoubtMenu::refused, this, &EditMenu::refused);
}

void EditMenu::addSearches(const Views& views) {
  addSeparator();
  addAction(tr("&Find Chord ..."), QKeySequence::Find, &views.find, &FindBar::open);
  addAction(tr("Search &Library ..."), tr("Ctrl+L"), &views.tree, &TreePanel::focusSearch);
}

void EditMenu::addLibraryEdits(TreePanel& tree) {
  addSeparator();
  addAction(tr("Rena&me in Library"), tr("F2"), this, &EditMenu::renameWanted);
  QMenu* albums = addMenu(tr("Mo&ve Song to Album"));
  connect(this, &QMenu::aboutToShow, this, [this, albums, &tree] { listAlbums(*albums, tree); });
}

/// Those that the song that is shown may move to.
void EditMenu::listAlbums(QMenu& menu, TreePanel& tree) {
  menu.clear();
  const QBAlbum* own = m_song ? m_song->album() : nullptr;
  for (const auto& album : QBTabMgr::db().albums())
    if (own && album != own) {
      const QAction* move = menu.addAction(toText(album->name()).replace('&', "&&"));
      connect(move, &QAction::triggered, this, [this, album, &tree] {
        guarded([&] {
          moveSong(*m_song, *album);
          emit edited();  // its title may have been taken there
        });
        tree.showSong(m_song);
      });
    }
  menu.setEnabled(!menu.isEmpty());
}

// ---- what they do

ChordSpan EditMenu::chosen() const {
  const ChordSpan selected = m_tablature.selection();
  const int cursor = m_tablature.cursorChord();
  return selected.first >= 0 ? selected : ChordSpan{cursor, cursor};
}

void EditMenu::copy() {
  m_tablature.copy();
  const ChordSpan span = chosen();
  if (!m_song || span.first < 0) return;
  m_copied = CopiedChord::of(*m_song, span.first, span.last);
  m_copiedText = QApplication::clipboard()->text();
}

/// Chords as they were copied, or what a tablature that is text says of some.
void EditMenu::paste() {
  const QString text = QApplication::clipboard()->text();
  if (!m_copied.empty() && text == m_copiedText) return paste(m_copied);
  const TabReader written(text.toStdString());
  if (written.chords().empty())
    return emit refused(
        tr("There are no chords to paste; copy some in a tablature, or six lines of one as text"));
  paste(written.chords());
}

/// Behind what is selected, and selects what has come.
template <class Chords>
void EditMenu::paste(const Chords& chords) {
  if (!m_song) return;
  const int count = static_cast<int>(chords.size());
  const int after = chosen().last;
  perform([&](SongEditor& editor) {
    const int first = editor.pasteAfter(after, chords);
    emit edited();
    m_tablature.selectChords(first, first + count - 1);
  });
}

void EditMenu::moveTone(int strings) {
  const int chord = m_tablature.cursorChord();
  const int to = m_tablature.cursorString() + strings;
  if (to < 0 || to >= kStrings) return;
  attempt([&](SongEditor& editor) {
    editor.moveTone(chord, to - strings, to);
    m_tablature.moveCursor(chord, to);
  });
}

void EditMenu::connectViews(FretboardView& fretboard) {
  connect(&m_tablature, &TablatureView::fretTyped, this,
          [this](int chord, int string, int fret, bool continues) {
            attempt([&](SongEditor& editor) { editor.setFret(chord, string, fret, continues); });
          });
  connect(&m_tablature, &TablatureView::removalWanted, this, [this](int chord, int string) {
    if (m_doubts->drop(chord, string)) return;
    attempt([&](SongEditor& editor) { editor.removeTone(chord, string); });
  });
  connect(&m_tablature, &TablatureView::menuWanted, this,
          [this](const QPoint& place) { popup(place); });
  connect(&fretboard, &FretboardView::clicked, this, [this](int string, int fret) {
    attempt(
        [&](SongEditor& editor) { toggleFret(editor, m_tablature.cursorChord(), string, fret); });
  });
}

void EditMenu::attempt(const std::function<void(SongEditor&)>& edit) {
  if (m_song && m_tablature.cursorChord() >= 0) perform(edit);
}

/// A song without chords has no cursor, and gets its first chord all the same.
void EditMenu::attemptInsertion(const std::function<void(SongEditor&, int)>& insert) {
  if (!m_song) return;
  if (!m_song->chords().empty()) {
    attempt([&](SongEditor& editor) { insert(editor, m_tablature.cursorChord()); });
    return;
  }
  perform([&](SongEditor& editor) { insert(editor, 0); });
  m_tablature.moveCursor(0, m_tablature.cursorString());
}

void EditMenu::perform(const std::function<void(SongEditor&)>& edit) {
  if (m_locked) {
    emit refused(tr("Stop playing first, then edit"));
    return;
  }
  guarded([&] {
    SongEditor editor(QBTabMgr::db(), *m_song);
    edit(editor);
    emit edited();
  });
}

void EditMenu::guarded(const std::function<void()>& act) {
  try {
    act();
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

/// The selected chords, or the one under the cursor when none are.
void EditMenu::deleteChosen() {
  const ChordSpan chosen = m_tablature.selection();
  attempt([&](SongEditor& editor) {
    if (chosen.first < 0)
      editor.deleteChord(m_tablature.cursorChord());
    else
      editor.deleteChords(chosen.first, chosen.last);
  });
  if (chosen.first < 0 || m_locked) return;
  m_tablature.selectNone();
  m_tablature.moveCursor(chosen.first, m_tablature.cursorString());
}

void EditMenu::undo() {
  bool undone = true;
  guarded([&] { undone = QBSession::session().undo(); });
  if (undone) return;
  const platform::UserText& running = undoManager().undoWaitsFor();
  if (running.empty()) return;
  emit refused(
      tr("\"%1\" still goes on; end it or wait for its end, then undo").arg(translated(running)));
}

void EditMenu::nameChord() {
  const ChordSpan span = chosen();
  if (!m_song || span.first < 0) return;
  const NamedPassages passages(QBTabMgr::db(), *m_song);
  NameDialog dialog(*m_song, passages, span, m_tablature.selection().first >= 0, parentWidget());
  if (dialog.exec() != QDialog::Accepted) return;
  attempt([&](SongEditor& editor) {
    const auto name = dialog.name();
    editor.nameAll(dialog.passages(), name ? &*name : nullptr);
  });
}

void EditMenu::chooseShape() {
  const ChordSpan span = chosen();
  if (!m_song || span.first < 0) return;
  const auto& chord = *m_song->allChords().at(static_cast<std::size_t>(span.first));
  ShapeDialog dialog(openStringsOf(m_song), toText(shownName(chord)), parentWidget());
  if (dialog.exec() != QDialog::Accepted) return;
  attempt([&](SongEditor& editor) {
    editor.setShape(span.first, span.last, dialog.name(), dialog.shape());
  });
}

void EditMenu::setSong(QBSong* song) {
  m_song = song;
  m_fingers->setSong(song);
  m_rhythm->setSong(song);
  m_doubts->setSong(song);
  update();
}

void EditMenu::setLocked(bool locked) {
  m_fingers->setLocked(locked);
  m_rhythm->setLocked(locked);
  m_doubts->setLocked(locked);
  if (std::exchange(m_locked, locked) != locked) update();
}

void EditMenu::update() {
  const bool editable = m_song && !m_locked && !QBTabMgr::db().context().isReadOnly();
  for (QAction* action : m_edits) action->setEnabled(editable);
  m_duration->setEnabled(editable);
  platform::UndoManager& manager = undoManager();
  const QString undo = titled(tr("&Undo"), tr("&Undo %1"), manager.undoActionName());
  m_undo->setText(titled(undo, tr("%1 (after: %2)").arg(undo), manager.undoWaitsFor()));
  m_redo->setText(titled(tr("&Redo"), tr("&Redo %1"), manager.redoActionName()));
  if (!isVisible()) return;
  m_undo->setEnabled(manager.canUndo());
  m_redo->setEnabled(manager.canRedo());
}

}  // namespace korvel::ui
