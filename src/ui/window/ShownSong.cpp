// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/ShownSong.h"

#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Translated.h"
#include "ui/menus/DoubtMenu.h"
#include "ui/menus/EditMenu.h"
#include "ui/menus/RhythmMenu.h"
#include "ui/page/PageDesk.h"
#include "ui/page/PageView.h"
#include "ui/roll/RollView.h"
#include "ui/sound/Moments.h"
#include "ui/sound/PlayerBar.h"
#include "ui/sound/PracticePanel.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"
#include "workflow/arranging/guided/Practice.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/playing/HeldChord.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

LoopEnds loopEnds() { return Preferences().loopsBars() ? LoopEnds::atBars : LoopEnds::atChords; }

}  // namespace

ShownSong::ShownSong(const Views& views, QObject* parent)
    : QObject(parent), m_views(views), m_rollEdits(views.roll) {
  TablatureView& tablature = m_views.tablature;
  RollView& roll = m_views.roll;
  PlayerBar& player = m_views.player;
  connect(&tablature, &TablatureView::clicked, this,
          [](double x, double y) { QBSession::session().selectChord(x, y); });
  connect(&tablature, &TablatureView::songWanted, this,
          [this] { QBSession::session().setActiveSong(m_song); });
  connect(&tablature, &TablatureView::loopEndChosen, this, [this](int chord) {
    changeLoop([chord](QBSong& song) { moveLoopEnd(song, chord, loopEnds()); });
  });
  connect(&tablature, &TablatureView::loopDragged, this, [this](int first, int last) {
    changeLoop([first, last](QBSong& song) { setLoop(song, first, last, loopEnds()); });
  });
  connect(&tablature, &TablatureView::chordClicked, this, &ShownSong::hearClicked);
  connect(&m_views.practice, &PracticePanel::loopWanted, this, &ShownSong::practiseLoop);
  connect(&m_views.moments, &Moments::refused, this, &ShownSong::refused);
  connect(&tablature, &TablatureView::cursorMoved, this, &ShownSong::showCursor);
  connect(&tablature, &TablatureView::playToggled, &player, &PlayerBar::toggle);
  connectPage();
  connect(&roll, &RollView::playToggled, &player, &PlayerBar::toggle);
  connect(&roll, &RollView::chordChosen, this,
          [&tablature](int chord) { tablature.moveCursor(chord, tablature.cursorString()); });
  connect(&roll, &RollView::beatDragged, &m_views.edits.rhythm(), &RhythmMenu::dragBeat);
  connect(&roll, &RollView::listenAt, this, [this](double seconds, double length) {
    if (hearsClicks()) m_views.moments.listenAt(seconds, length);
  });
  connect(&m_views.edits.doubts(), &DoubtMenu::found, &roll, &RollView::setNotes);
  connect(&m_views.edits.doubts(), &DoubtMenu::listenAt, &m_views.moments, &Moments::listenAt);
  connect(&roll, &RollView::pitchWanted, &m_views.moments, &Moments::strike);
  connect(&m_rollEdits, &RollEdits::edited, this, &ShownSong::refresh);
  connect(&m_rollEdits, &RollEdits::refused, this, &ShownSong::refused);
  connect(&m_views.edits, &EditMenu::edited, this, &ShownSong::refresh);
  connect(&player, &PlayerBar::moved, this, &ShownSong::showPlaying);
  connect(&player, &PlayerBar::resetLoopWanted, this, &ShownSong::resetLoop);
}

void ShownSong::connectPage() {
  PageView& page = m_views.page.view();
  TablatureView& tablature = m_views.tablature;
  connect(&page, &PageView::chordChosen, &tablature,
          [&tablature](int chord) { tablature.moveCursor(chord, tablature.cursorString()); });
  connect(&page, &PageView::listenWanted, &m_views.moments, [this](int chord, bool struck) {
    struck ? m_views.moments.strikeChord(chord) : m_views.moments.listenTo(chord);
  });
  connect(&page, &PageView::playToggled, &m_views.player, &PlayerBar::toggle);
  connect(&m_views.page, &PageDesk::edited, this, &ShownSong::refresh);
  connect(&m_views.page, &PageDesk::refused, this, &ShownSong::refused);
}

void ShownSong::set(QBSong* song) {
  m_song = song;
  m_views.tablature.sayPlace();  // the tree tells of its current row as if it had the focus
  m_views.fretboard.setSong(song);
  m_views.page.setSong(song);
  m_views.roll.setSong(song);
  m_rollEdits.setSong(song);
  m_views.edits.setSong(song);
  m_views.player.setSong(song);
  m_views.practice.setSong(song);
  m_views.moments.setSong(song);
  showCursor(m_views.tablature.cursorChord());
  showPlaying();
}

/// While a song plays a moment of another place would only disturb.
bool ShownSong::hearsClicks() const {
  return Preferences().hearsClicks() && !m_views.player.song();
}

/// Ctrl asks for what a click alone does not play.
void ShownSong::hearClicked(int chord, int string, Qt::KeyboardModifiers keys) {
  if (keys & Qt::ShiftModifier)
    m_views.moments.strikeChord(chord);
  else if (keys & Qt::ControlModifier && Preferences().hearsClicks())
    m_views.moments.strikeTone(chord, string);
  else if (keys & (Qt::ControlModifier | Qt::AltModifier))
    m_views.moments.listenTo(chord);
  else if (string >= 0 && hearsClicks())
    m_views.moments.touch(chord);
}

void ShownSong::showGrip(int chord) {
  m_views.fretboard.showChord(chord);
  m_views.practice.showChord(chord);
}

void ShownSong::showCursor(int chord) {
  showGrip(chord);
  m_views.page.view().showCursor(chord);
  m_views.roll.showCursor(chord);
  emit placeChanged(m_views.tablature.placeText());
}

/// The chord that is heard, or the one under the cursor when none is, or one of another song.
void ShownSong::showPlaying() {
  const bool shown = m_views.player.plays(m_song);
  const int chord = shown ? m_views.tablature.playingChord() : -1;
  const bool plays = m_views.player.song() != nullptr;
  if (!std::exchange(m_plays, plays) && plays) m_views.moments.stop();
  emit heardChanged(m_views.player.song());
  m_views.edits.setLocked(shown);
  m_rollEdits.setLocked(shown);
  m_views.page.view().showPlaying(chord);
  m_views.roll.showPlaying(chord);
  showGrip(chord >= 0 ? chordHeldAt(*m_song, chord) : m_views.tablature.cursorChord());
}

void ShownSong::resetLoop() {
  changeLoop([](QBSong& song) { clearLoop(song); });
}

void ShownSong::beginLoop() {
  changeLoop([chord = m_views.tablature.cursorChord()](QBSong& song) {
    if (chord >= 0) korvel::beginLoop(song, chord, loopEnds());
  });
}

void ShownSong::endLoop() {
  changeLoop([chord = m_views.tablature.cursorChord()](QBSong& song) {
    if (chord >= 0) korvel::endLoop(song, chord, loopEnds());
  });
}

bool ShownSong::choosePassage(const Practice& practice) {
  return changeLoop([&](QBSong& song) { korvel::choosePassage(song, practice.passage); });
}

/// What plays goes on with the new loop.
void ShownSong::practiseLoop(int first, int last) {
  const bool plays = m_views.player.plays(m_song);
  if (plays) m_views.player.stop();
  changeLoop([&](QBSong& song) { setLoop(song, first, last, LoopEnds::atChords); });
  if (plays) m_views.player.play();
}

/// Answers whether it was changed.
bool ShownSong::changeLoop(const std::function<void(QBSong&)>& change) {
  if (m_views.player.plays(m_song)) {
    emit refused(tr("Stop playing first, then change the loop"));
    return false;
  }
  const QString refusal = refusalOf([&] {
    if (m_song) change(*m_song);
  });
  if (!refusal.isEmpty()) emit refused(refusal);
  refresh();
  m_views.player.controller().updateLoop();
  return refusal.isEmpty();
}

void ShownSong::refresh() {
  m_views.tablature.refresh();
  m_views.page.view().refresh();
  m_views.edits.doubts().refresh();
  m_views.roll.refresh();
  m_views.practice.setSong(m_song);
  showCursor(m_views.tablature.cursorChord());
}

}  // namespace korvel::ui
