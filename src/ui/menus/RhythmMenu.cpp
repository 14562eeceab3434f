// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/RhythmMenu.h"

#include <QInputDialog>
#include <algorithm>
#include <array>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/views/TablatureView.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/editing/rhythm/SongRhythm.h"
#include "workflow/session/EditRefused.h"

namespace korvel::ui {
namespace {

using platform::phrase;

constexpr std::array kMetres{rhythm::Metre{2, false}, rhythm::Metre{3, false},
                             rhythm::Metre{4, false}, rhythm::Metre{2, true},
                             rhythm::Metre{4, true}};

/// What a beat moves by at once, in seconds.
constexpr double kLittle = 0.02;

}  // namespace

RhythmMenu::RhythmMenu(TablatureView& tablature, QWidget* parent)
    : ReasonedMenu(tr("Rh&ythm"), parent), m_tablature(tablature) {
  addTempo();
  addBars();
  addFeel();
  addLayouts();
  connect(this, &QMenu::aboutToShow, this, &RhythmMenu::prepare);
}

void RhythmMenu::setSong(QBSong* song) { m_song = song; }

// ---- entries

void RhythmMenu::addWish(QMenu& menu, const QString& text, const QKeySequence& keys,
                         const platform::Phrase& title, const Wish& wish) {
  menu.addAction(text, keys, this, [this, title, wish] { change(title, wish); });
}

void RhythmMenu::addWishHere(const QString& text, const QKeySequence& keys,
                             const platform::Phrase& title,
                             const std::function<void(WishedRhythm&, double)>& wish) {
  addWish(*this, text, keys, title,
          [this, wish](WishedRhythm& wished) { wish(wished, secondsAtCursor()); });
}

void RhythmMenu::addTempo() {
  const auto add = [this](const QString& text, const QKeySequence& keys,
                          const platform::Phrase& title, double factor) {
    addWish(*this, text, keys, title,
            [factor](WishedRhythm& wished) { wished.multiplyTempo(factor); });
  };
  add(tr("&Double Tempo"), tr("Ctrl+Shift+Up"), phrase("UndoAction", "Double Tempo"), 2);
  add(tr("&Half Tempo"), tr("Ctrl+Shift+Down"), phrase("UndoAction", "Half Tempo"), 0.5);
  add(tr("&Three Beats for Two"), {}, phrase("UndoAction", "Three Beats for Two"), 1.5);
  add(tr("T&wo Beats for Three"), {}, phrase("UndoAction", "Two Beats for Three"), 2 / 3.0);
  addAction(tr("Set T&empo ..."), this, [this] { askForTempo(); });
  addAction(tr("Tap &Along ..."), this, [this] {
    attempt([this] { SongRhythm(*m_song).recorded(); });
    if (m_song && refusal().isEmpty()) emit tapsWanted();
  });
  m_others = addMenu(tr("&Other Readings"));
  addSeparator();
}

void RhythmMenu::addBars() {
  QMenu* metres = addMenu(tr("&Metre"));
  for (const rhythm::Metre& metre : kMetres)
    addWish(*metres, toText(metreName(metre)), {}, phrase("UndoAction", "Set Metre"),
            [metre](WishedRhythm& wished) { wished.setMetre(metre); });
  addWishHere(tr("&Bar Line Here"), tr("Ctrl+B"), phrase("UndoAction", "Bar Line Here"),
              [](WishedRhythm& wished, double at) { wished.setBarLine(at); });
  const auto add = [this](const QString& text, const platform::Phrase& title, double beats) {
    addWish(*this, text, {}, title, [beats](WishedRhythm& wished) { wished.moveBarLines(beats); });
  };
  add(tr("Bar Lines a Beat Ea&rlier"), phrase("UndoAction", "Bar Lines Earlier"), -1);
  add(tr("Bar Lines a Beat &Later"), phrase("UndoAction", "Bar Lines Later"), 1);
  add(tr("Beats Half a Beat Earlier"), phrase("UndoAction", "Beats Earlier"), -0.5);
  add(tr("Beats Half a Beat Later"), phrase("UndoAction", "Beats Later"), 0.5);
  const auto drag = [this](const QString& text, const platform::Phrase& title, double by) {
    addWishHere(text, {}, title,
                [by](WishedRhythm& wished, double at) { wished.dragBeat(at, at + by); });
  };
  drag(tr("Beat Here a Little Earlier"), phrase("UndoAction", "Move Beat"), -kLittle);
  drag(tr("Beat Here a Little Later"), phrase("UndoAction", "Move Beat"), kLittle);
  addSeparator();
}

void RhythmMenu::addFeel() {
  const auto add = [this](const QString& text, rhythm::Feel feel) {
    addWish(*this, text, {}, phrase("UndoAction", "Set Feel"),
            [feel](WishedRhythm& wished) { wished.setFeel(feel); });
  };
  add(tr("&Straight Eighths"), rhythm::Feel::straight);
  add(tr("Sw&ing"), rhythm::Feel::swing);
  add(tr("Tri&plets"), rhythm::Feel::triplets);
  const auto addFinest = [this](const QString& text, int value) {
    addWish(*this, text, {}, phrase("UndoAction", "Set Shortest Notes"),
            [value](WishedRhythm& wished) { wished.setFinest(value); });
  };
  addFinest(tr("Not Shorter Than Eighths"), 8);
  addFinest(tr("Not Shorter Than Sixteenths"), 16);
  addSeparator();
}

void RhythmMenu::addLayouts() {
  addAction(tr("Move Chord Earlier"), tr("Alt+Left"), this, [this] { moveChord(-1); });
  addAction(tr("Move Chord Later"), tr("Alt+Right"), this, [this] { moveChord(1); });
  addSeparator();
  addAction(tr("Lay Into Bars"), this,
            [this] { perform([](SongRhythm& song) { song.layIntoBars(); }); });
  addAction(tr("Lay Into Slices"), this,
            [this] { perform([](SongRhythm& song) { song.layIntoSlices(); }); });
  addWish(*this, tr("As It Was Heard"), {}, phrase("UndoAction", "Rhythm As Heard"),
          [](WishedRhythm& wished) { wished.forget(); });
}

void RhythmMenu::prepare() {
  const QString why = refusal();
  showReason(why);
  m_others->clear();
  if (why.isEmpty()) listOthers();
  m_others->setEnabled(!m_others->isEmpty());
}

void RhythmMenu::listOthers() {
  attempt([this] {
    const RecordedRhythm recorded(*m_song);
    for (const rhythm::Alternative& other : recorded.others())
      addWish(*m_others, translated(offerText(other)), {},
              phrase("UndoAction", "Choose Other Reading"),
              [other](WishedRhythm& wished) { wished.choose(other); });
  });
}

/// Why nothing can be done; empty when it can.
QString RhythmMenu::refusal() const {
  if (!m_song) return tr("No song is shown");
  if (m_locked) return tr("Stop playing first, then edit");
  if (QBTabMgr::db().context().isReadOnly()) return tr("The store cannot be written");
  const auto why = RecordedRhythm::refusal(*m_song);
  return why ? translated(*why) : QString();
}

// ---- what they do

void RhythmMenu::askForTempo() {
  if (!m_song) return;
  attempt([this] {
    bool chosen = false;
    const double before = SongRhythm(*m_song).tempo();
    const double tempo = QInputDialog::getDouble(
        parentWidget(), tr("Set Tempo"), tr("Beats a minute:"),
        std::clamp(std::round(before), WishedRhythm::kSlowest, WishedRhythm::kFastest),
        WishedRhythm::kSlowest, WishedRhythm::kFastest, 1, &chosen);
    if (chosen)
      change(phrase("UndoAction", "Set Tempo"),
             [tempo](WishedRhythm& wished) { wished.setTempo(tempo); });
  });
}

void RhythmMenu::setTaps(const std::vector<double>& seconds) {
  change(phrase("UndoAction", "Tap Along"), [&](WishedRhythm& wished) { wished.setTaps(seconds); });
}

void RhythmMenu::dragBeat(double from, double to) {
  if (!m_song) return;
  const SongTime time(*m_song);
  if (!time.isAsRecorded()) return emit refused(tr("This song does not follow its recording"));
  const double begin = time.begin();
  change(phrase("UndoAction", "Move Beat"), [&](WishedRhythm& wished) {
    wished.dragBeat(time.secondsOf(begin + from), time.secondsOf(begin + to));
  });
}

void RhythmMenu::change(const platform::Phrase& title, const Wish& wish) {
  perform([&](SongRhythm& song) { song.change(title, wish); });
}

/// The cursor stays where it was in time.
void RhythmMenu::perform(const std::function<void(SongRhythm&)>& act) {
  if (!m_song) return;
  if (const QString why = refusal(); !why.isEmpty()) return emit refused(why);
  attempt([&] {
    const int cursor = m_tablature.cursorChord();
    const double seconds = cursor >= 0 ? secondsAtCursor() : 0;
    SongRhythm song(*m_song);
    act(song);
    emit edited();
    keepCursorAt(seconds);
  });
}

void RhythmMenu::moveChord(int steps) {
  if (!m_song || m_tablature.cursorChord() < 0) return;
  if (m_locked) return emit refused(tr("Stop playing first, then edit"));
  attempt([&] {
    SongEditor editor(QBTabMgr::db(), *m_song);
    const int moved = editor.moveChord(m_tablature.cursorChord(), steps);
    emit edited();
    m_tablature.moveCursor(moved, m_tablature.cursorString());
  });
}

void RhythmMenu::attempt(const std::function<void()>& act) {
  if (!m_song) return;
  try {
    act();
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

double RhythmMenu::secondsAtCursor() const {
  const auto& chords = m_song->allChords();
  const int cursor = m_tablature.cursorChord();
  if (cursor < 0 || cursor >= std::ssize(chords)) return 0;
  const auto index = static_cast<std::size_t>(cursor);
  return recordedSecondsOf(*chords[index]).value_or(0);
}

void RhythmMenu::keepCursorAt(double seconds) {
  const auto& chords = m_song->allChords();
  const auto distance = [seconds](const auto& chord) {
    return std::abs(recordedSecondsOf(*chord).value_or(0) - seconds);
  };
  const auto nearest = std::ranges::min_element(chords, {}, distance);
  if (nearest != chords.end())
    m_tablature.moveCursor(static_cast<int>(nearest - chords.begin()), m_tablature.cursorString());
}

}  // namespace korvel::ui
