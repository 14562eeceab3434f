// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/FingerMenu.h"

#include <QInputDialog>
#include <algorithm>
#include <optional>

#include "fingering/FingeringOptions.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/views/TablatureView.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::ui {
namespace {

const QBChord& chordAt(QBSong& song, int index) {
  return *song.allChords().at(static_cast<std::size_t>(index));
}

/// Where the hand is told to be from a chord on or, if it is not, where it plays that.
int handAt(QBSong& song, int index) {
  const QBChord& chord = chordAt(song, index);
  if (chord.hasHandFret()) return std::max(chord.handFret(), 1);
  int lowest = SongFingers::kHighestHand;
  bool any = false;
  for (const auto& tone : tonesOf(chord))
    if (tone->isActive() && tone->fret() > 0) {
      lowest = std::min(lowest, tone->fret());
      any = true;
    }
  return any ? lowest : 1;
}

}  // namespace

FingerMenu::FingerMenu(TablatureView& tablature, QWidget* parent)
    : QMenu(tr("Fing&ering"), parent), m_tablature(tablature) {
  setToolTipsVisible(true);
  addHands();
  addShapes();
  addMoves();
  addTunings();
  connect(&m_tablature, &TablatureView::shapeWanted, this, &FingerMenu::changeShape);
  connect(this, &QMenu::aboutToShow, this, &FingerMenu::prepare);
  // Their keys tell why they do nothing.
  connect(this, &QMenu::aboutToHide, this, [this] {
    for (QAction* action : actions()) action->setEnabled(true);
  });
}

void FingerMenu::setSong(QBSong* song) { m_song = song; }

QAction* FingerMenu::addEdit(const QString& text, const QKeySequence& keys, const QString& hint,
                             const std::function<void()>& act) {
  QAction* action = addAction(text, keys, this, act);
  action->setToolTip(hint);
  action->setStatusTip(hint);
  return action;
}

void FingerMenu::addHands() {
  addEdit(tr("&Hand Position From Here ..."), tr("Ctrl+Shift+F"),
          tr("The hand is near a fret from this chord on, up to the next one that says so"),
          [this] { askForHand(); });
  addEdit(tr("Hand &Anywhere From Here"), {},
          tr("From this chord on the hand is where it is easiest"), [this] {
            attempt([this](SongFingers& fingers) {
              fingers.setHand(m_tablature.cursorChord(), SongFingers::kAnywhere);
            });
          });
  m_forget = addEdit(tr("&Forget Hand Position Here"), {},
                     tr("What was said of the hand before this chord goes on"), [this] {
                       attempt([this](SongFingers& fingers) {
                         fingers.setHand(m_tablature.cursorChord(), std::nullopt);
                       });
                     });
  addSeparator();
}

void FingerMenu::addShapes() {
  const QString hint =
      tr("Another way to hold the notes of this chord; Tab, while chords are selected");
  addEdit(tr("&Next Shape"), tr("Ctrl+J"), hint, [this] { changeShape(1); });
  addEdit(tr("&Previous Shape"), tr("Ctrl+Shift+J"), hint, [this] { changeShape(-1); });
  addSeparator();
}

void FingerMenu::addMoves() {
  const QString hint =
      tr("What is selected, or the tone at the cursor; around it the rest is fingered anew");
  addEdit(tr("To Hi&gher Strings"), tr("Alt+Shift+Up"), hint, [this] { moveStrings(1); });
  addEdit(tr("To Lo&wer Strings"), tr("Alt+Shift+Down"), hint, [this] { moveStrings(-1); });
  addEdit(tr("Finge&r Anew"), {},
          tr("Chooses strings for what is selected, or the whole song; what you changed stays"),
          [this] {
            attempt([this](SongFingers& fingers) {
              const ChordSpan span = m_tablature.selection();
              const int last = static_cast<int>(std::ssize(m_song->allChords())) - 1;
              span.first < 0 ? fingers.fingerAnew(0, last)
                             : fingers.fingerAnew(span.first, span.last);
            });
          });
}

void FingerMenu::addTunings() {
  addSeparator();
  m_sameSound = addMenu(tr("Other Tuning, Same Sound"));
  m_sameFrets = addMenu(tr("Other Tuning, Same Frets"));
  m_capoSameSound = addMenu(tr("Capo, Same Sound"));
  m_capoSameFrets = addMenu(tr("Capo, Same Shapes"));
}

void FingerMenu::retune(const Strings& strings, SongFingers::Kept kept) {
  attempt([&](SongFingers& fingers) {
    const int dropped = fingers.retune(strings, kept);
    if (dropped == 0) return;
    emit refused((strings.tuning
                      ? tr("Notes that have no place in this tuning and were left out: %1")
                      : tr("Notes that have no place with this capo and were left out: %1"))
                     .arg(dropped));
  });
}

void FingerMenu::fillTunings() {
  const auto fill = [this](QMenu& menu, SongFingers::Kept kept) {
    menu.clear();
    for (const auto& tuning : QBTabMgr::db().tunings()) {
      const QString name = toText(tuning->descr() + " (" + notesOf(*tuning) + ')');
      menu.addAction(QString(name).replace('&', "&&"), this,
                     [this, kept, chosen = platform::Ref<QBTuning>(tuning)] {
                       retune({.tuning = chosen.get()}, kept);
                     })
          ->setEnabled(tuningOf(m_song.get()) != tuning.get());
    }
  };
  fill(*m_sameSound, SongFingers::Kept::sound);
  fill(*m_sameFrets, SongFingers::Kept::frets);
}

void FingerMenu::fillCapos() {
  const int now = m_song ? capoOf(*m_song) : 0;
  const auto fill = [this, now](QMenu& menu, SongFingers::Kept kept) {
    menu.clear();
    for (int fret = 0; fret <= fingering::FingeringOptions::kHighestCapo; ++fret) {
      QAction* action = menu.addAction(fret == 0 ? tr("None", "a capo") : tr("Fret %1").arg(fret),
                                       this, [this, kept, fret] { retune({.capo = fret}, kept); });
      action->setCheckable(true);
      action->setChecked(fret == now);
      action->setEnabled(fret != now);
    }
  };
  fill(*m_capoSameSound, SongFingers::Kept::sound);
  fill(*m_capoSameFrets, SongFingers::Kept::frets);
}

void FingerMenu::prepare() {
  fillTunings();
  fillCapos();
  const int cursor = m_tablature.cursorChord();
  const bool editable =
      m_song && !m_locked && cursor >= 0 && !QBTabMgr::db().context().isReadOnly();
  for (QAction* action : actions()) action->setEnabled(editable);
  if (editable) m_forget->setEnabled(chordAt(*m_song, cursor).hasHandFret());
}

void FingerMenu::askForHand() {
  const int cursor = m_tablature.cursorChord();
  if (!m_song || cursor < 0) return;
  bool chosen = false;
  const int fret = QInputDialog::getInt(
      parentWidget(), tr("Hand Position"), tr("Fret of the first finger, from this chord on:"),
      handAt(*m_song, cursor), 1, SongFingers::kHighestHand, 1, &chosen);
  if (chosen) attempt([&](SongFingers& fingers) { fingers.setHand(cursor, fret); });
}

void FingerMenu::changeShape(int by) {
  attempt([&](SongFingers& fingers) { fingers.changeShape(m_tablature.cursorChord(), by); });
}

void FingerMenu::moveStrings(int by) {
  attempt([&](SongFingers& fingers) {
    const ChordSpan span = m_tablature.selection();
    if (span.first >= 0) return fingers.movePhrase(span.first, span.last, by);
    const int chord = m_tablature.cursorChord();
    const int string = m_tablature.cursorString();
    fingers.moveTone(chord, string, by);
    const auto tones = tonesOf(chordAt(*m_song, chord));
    if (std::ranges::any_of(tones, [&](const auto& tone) { return tone->string() == string + by; }))
      m_tablature.moveCursor(chord, string + by);
  });
}

void FingerMenu::attempt(const std::function<void(SongFingers&)>& edit) {
  if (!m_song || m_tablature.cursorChord() < 0) return;
  if (m_locked) return emit refused(tr("Stop playing first, then edit"));
  try {
    SongFingers fingers(QBTabMgr::db(), *m_song);
    edit(fingers);
    emit edited();
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

}  // namespace korvel::ui
