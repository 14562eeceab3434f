// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/DoubtMenu.h"

#include <QProgressDialog>
#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>
#include <vector>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/hearing/HearAgainDialog.h"
#include "ui/dialogs/hearing/NotesDialog.h"
#include "ui/views/TablatureView.h"
#include "workflow/editing/doubts/PartHearing.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel::ui {
DoubtMenu::DoubtMenu(TablatureView& tablature, QWidget* parent)
    : ReasonedMenu(tr("Heard Notes"), parent), m_tablature(tablature) {
  addPlaces();
  addCorrections();
  connect(&m_tablature, &TablatureView::confirmWanted, this, &DoubtMenu::confirm);
  connect(this, &QMenu::aboutToShow, this, [this] { showReason(refusal()); });
  m_turn.setSingleShot(true);
  connect(&m_turn, &QTimer::timeout, this, &DoubtMenu::find);
}

// ---- entries

/// Letters are keys of the tablature only: elsewhere they are typed.
QAction* DoubtMenu::addKey(const QString& text, const QKeySequence& keys,
                           const std::function<void()>& act) {
  QAction* action = addAction(text, keys, this, act);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  m_tablature.addAction(action);
  return action;
}

void DoubtMenu::addPlaces() {
  addKey(tr("&Next Doubtful Place"), tr("N"), [this] { goToNext(); });
  addKey(tr("&Previous Doubtful Place"), tr("Shift+N"), [this] { goToPrevious(); });
  addSeparator();
}

void DoubtMenu::addCorrections() {
  addAction(tr("&Confirm What Is There"), this, [this] { confirm(); });
  addAction(tr("&Drop Note"), this, [this] { dropHere(); });
  addKey(tr("&Take What Else Was Heard"), tr("A"), [this] { takeOther(); });
  addSeparator();
  addAction(tr("&Fewer or More Notes ..."), this, [this] { chooseSensitivity(); });
  addAction(tr("&Hear Selection Again ..."), this, [this] { hearSelection(); });
}

/// Why nothing can be done; empty when it can.
QString DoubtMenu::refusal() const {
  if (!m_song) return tr("No song is shown");
  if (m_locked) return tr("Stop playing first, then edit");
  if (QBTabMgr::db().context().isReadOnly()) return tr("The store cannot be written");
  if (m_notes && !m_notes->empty()) return {};  // asking takes as long as finding them did
  const auto why = SongNotes::refusal(*m_song);
  return why ? translated(*why) : QString();
}

// ---- what is doubted

void DoubtMenu::setSong(QBSong* song) {
  m_song = song;
  refresh();
}

void DoubtMenu::refresh() {
  m_isFound = false;
  m_notes.reset();
  m_doubts = {};
  m_tablature.setDoubts({});
  m_turn.start(0);
}

void DoubtMenu::find() {
  if (m_isFound) return;
  m_isFound = true;
  m_turn.stop();
  if (m_song && !m_song->isDeleted()) {
    m_notes.emplace(*m_song);
    m_doubts = DoubtList(*m_song, *m_notes);
    emit found(*m_notes);
  }
  mark();
  emit leftChanged(static_cast<int>(m_doubts.size()));
}

void DoubtMenu::mark() {
  DoubtMarks marks;
  for (const DoubtfulPlace& place : m_doubts.places()) {
    DoubtMark& mark = marks[place.chord];
    for (const Doubt& doubt : place.doubts) {
      const int string = (*m_notes)[doubt.note].note.string;
      if (string >= 0 && doubt.kind != Doubt::Kind::chord) mark.strings |= 1U << string;
      if (!mark.words.isEmpty()) mark.words += tr("; ", "between two things that may be wrong");
      mark.words += translated(doubt.reason);
    }
  }
  if (m_notes)
    for (const SongNote& note : m_notes->all()) {
      const bool isDoubtful =
          note.isIn && !note.isLocked && note.note.probability < SongNotes::kDoubtful;
      if (isDoubtful && note.chord >= 0) marks[note.chord].strings |= 1U << note.note.string;
    }
  m_tablature.setDoubts(std::move(marks));
}

void DoubtMenu::goToNext() {
  if (!m_song) return;
  find();
  const DoubtfulPlace* next = m_doubts.next(m_tablature.cursorChord());
  goTo(next || m_doubts.empty() ? next : &m_doubts.places().front());
}

void DoubtMenu::goToPrevious() {
  if (!m_song) return;
  find();
  const DoubtfulPlace* previous = m_doubts.previous(m_tablature.cursorChord());
  goTo(previous || m_doubts.empty() ? previous : &m_doubts.places().back());
}

/// What is doubted is said last, so that it stays where the recording cannot be heard.
void DoubtMenu::goTo(const DoubtfulPlace* place) {
  if (!place) {
    const auto why = SongNotes::refusal(*m_song);
    return emit refused(why ? translated(*why) : tr("Nothing is doubted in this song any more"));
  }
  int string = m_tablature.cursorString();
  QStringList words;
  for (const Doubt& doubt : place->doubts) {
    words << translated(doubt.reason);
    if (words.size() == 1 && (*m_notes)[doubt.note].note.string >= 0)
      string = (*m_notes)[doubt.note].note.string;
  }
  const double seconds = place->seconds;
  const double length = place->length;
  m_tablature.moveCursor(place->chord, string);
  if (!m_locked) emit listenAt(seconds, length);  // while the song plays it would be heard twice
  emit said(words.join(tr("; ", "between two things that may be wrong")));
}

// ---- what is said of it

void DoubtMenu::correct(const std::function<void(SongCorrections&)>& act) {
  if (!m_song) return;
  if (const QString why = refusal(); !why.isEmpty()) return emit refused(why);
  try {
    const auto& chords = m_song->allChords();
    const auto cursor = static_cast<std::size_t>(std::max(m_tablature.cursorChord(), 0));
    const double seconds =
        cursor < chords.size() ? recordedSecondsOf(*chords[cursor]).value_or(0) : 0;
    SongCorrections corrections(*m_song);
    act(corrections);
    emit edited();
    keepCursorAt(seconds);
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

/// Chords may have come and gone.
void DoubtMenu::keepCursorAt(double seconds) {
  const auto& chords = m_song->allChords();
  const auto distance = [seconds](const auto& chord) {
    return std::abs(recordedSecondsOf(*chord).value_or(0) - seconds);
  };
  const auto nearest = std::ranges::min_element(chords, {}, distance);
  const auto index = static_cast<int>(nearest - chords.begin());
  if (nearest != chords.end() && index != m_tablature.cursorChord())
    m_tablature.moveCursor(index, m_tablature.cursorString());
}

/// All notes of the chord.
void DoubtMenu::confirm() {
  find();
  if (!m_notes) return;
  const int chord = m_tablature.cursorChord();
  std::vector<std::size_t> notes;
  for (std::size_t i = 0; i < m_notes->size(); ++i)
    if ((*m_notes)[i].isIn && (*m_notes)[i].chord == chord) notes.push_back(i);
  if (const DoubtfulPlace* place = m_doubts.at(chord))
    for (const Doubt& doubt : place->doubts) notes.push_back(doubt.note);
  if (!notes.empty()) correct([&](SongCorrections& song) { song.confirm(notes); });
}

bool DoubtMenu::drop(int chord, int string) {
  find();
  if (!m_notes || !m_doubts.at(chord)) return false;
  const auto note = m_notes->noteOf(chord, string);
  if (!note) return false;
  correct([&](SongCorrections& song) { song.drop(*note); });
  return true;
}

void DoubtMenu::dropHere() {
  find();
  if (!m_notes) return;
  const auto note = m_notes->noteOf(m_tablature.cursorChord(), m_tablature.cursorString());
  if (!note) return emit refused(tr("No note of the recording is at the cursor"));
  correct([&](SongCorrections& song) { song.drop(*note); });
}

/// What is missing comes, and what may be another note becomes that; first of all on the string at
/// the cursor.
void DoubtMenu::takeOther() {
  find();
  const DoubtfulPlace* place = m_doubts.at(m_tablature.cursorChord());
  const Doubt* chosen = nullptr;
  if (place)
    for (const Doubt& doubt : place->doubts) {
      const bool hasOther = doubt.kind == Doubt::Kind::missing || doubt.kind == Doubt::Kind::octave;
      const bool isHere = (*m_notes)[doubt.note].note.string == m_tablature.cursorString();
      if (hasOther && (!chosen || isHere)) chosen = &doubt;
    }
  if (!chosen) return emit refused(tr("Nothing else was heard here"));
  const Doubt doubt = *chosen;
  correct([&](SongCorrections& song) {
    if (doubt.kind == Doubt::Kind::missing)
      song.accept(doubt.note);
    else
      song.replace(doubt.note, *doubt.other);
  });
}

QString DoubtMenu::wordsOf(const NoteChanges& changes) {
  return tr("Notes that come: %1. Notes that go: %2.").arg(changes.come).arg(changes.go);
}

std::optional<SongCorrections::Part> DoubtMenu::selectedPart() const {
  const ChordSpan selected = m_tablature.selection();
  if (selected.first < 0) return {};
  return SongCorrections::Part{selected.first, selected.last};
}

void DoubtMenu::chooseSensitivity() {
  const auto part = selectedPart();
  correct([&](SongCorrections& song) {
    const auto preview = [&](double value) { return wordsOf(song.preview(value, part)); };
    NotesDialog dialog(preview, song.presentSensitivity(part), part.has_value(), parentWidget());
    if (dialog.exec() != QDialog::Accepted) return;
    song.decideAnew(dialog.sensitivity(), part);
  });
}

void DoubtMenu::hearSelection() {
  const auto part = selectedPart();
  if (!part) return emit refused(tr("Select the chords first that are to be heard again"));
  HearingSettings settings = Preferences().detectionSettings();
  QString changed;
  correct([&](SongCorrections&) {
    settings.fingering.capo = capoOf(*m_song);
    HearAgainDialog dialog(settings, *m_song, parentWidget());
    if (dialog.exec() != QDialog::Accepted) return;
    static_cast<precise::Settings&>(settings) = dialog.settings();
    PartHearing hearing(*m_song, *part, settings, dialog.playedOn());
    if (!hears(hearing)) return;
    changed = wordsOf(hearing.finish());
    if (const auto unreached = hearing.unreached(); unreached > 0)
      changed += ' ' + tr("Notes that the song's strings do not have: %1.").arg(unreached);
  });
  if (!changed.isEmpty()) emit said(changed);
}

/// Answers whether all was heard; its user may end it before.
bool DoubtMenu::hears(PartHearing& hearing) const {
  constexpr int kSteps = 100;
  QProgressDialog progress(tr("Hearing the selection again ..."), tr("Cancel"), 0, kSteps,
                           parentWidget());
  progress.setWindowModality(Qt::WindowModal);
  while (hearing.step()) {
    progress.setValue(static_cast<int>(hearing.progress() * (kSteps - 1)));
    if (progress.wasCanceled()) return false;
  }
  return true;
}

}  // namespace korvel::ui
