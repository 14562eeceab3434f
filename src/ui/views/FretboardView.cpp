// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/FretboardView.h"

#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "ui/views/Shades.h"
#include "ui/views/neck/NeckPainter.h"

namespace korvel::ui {

FretboardView::FretboardView(QWidget* parent) : QWidget(parent), m_words(nullptr) {
  setAccessibleName(tr("Fretboard"));
  setFocusPolicy(Qt::StrongFocus);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

FretboardView::~FretboardView() = default;

void FretboardView::setSong(QBSong* song) {
  m_chord = -1;
  m_song = song;
  m_words = ChordWords(tuningOf(song));
  showNext(-1);
  showChord(-1);
}

void FretboardView::setFrets(int frets) {
  m_frets = frets > NeckPlaces::kFretsOfShortNeck ? NeckPlaces::kFretsOfLongNeck
                                                  : NeckPlaces::kFretsOfShortNeck;
  update();
}

void FretboardView::setLeftHanded(bool leftHanded) {
  m_leftHanded = leftHanded;
  update();
}

int FretboardView::frets() const {
  const int needed = std::max({m_grip.highestFret(), m_nextGrip.highestFret(), m_fret});
  return std::max(m_frets, needed > NeckPlaces::kFretsOfShortNeck
                               ? std::max(needed, NeckPlaces::kFretsOfLongNeck)
                               : NeckPlaces::kFretsOfShortNeck);
}

bool FretboardView::isKnown(int chord) const {
  return m_song && chord >= 0 && chord < static_cast<int>(m_song->allChords().size());
}

ChordGrip FretboardView::gripOf(int chord) const {
  return isKnown(chord) ? ChordGrip(*m_song->allChords()[static_cast<std::size_t>(chord)])
                        : ChordGrip();
}

void FretboardView::showChord(int chord) {
  m_chord = isKnown(chord) ? chord : -1;
  m_grip = gripOf(chord);
  update();
  announce(*this);
}

void FretboardView::showNext(int chord) {
  m_next = isKnown(chord) ? chord : -1;
  m_nextGrip = gripOf(chord);
  update();
}

void FretboardView::moveCursor(int string, int fret) {
  m_string = std::clamp(string, 0, kStrings - 1);
  m_fret = std::clamp(fret, 0, NeckPlaces::kFretsOfLongNeck);
  update();
  announce(*this);
}

// ---- geometry

NeckPlaces FretboardView::neck() const { return {font(), size(), frets(), m_leftHanded}; }

QSize FretboardView::sizeHint() const { return NeckPlaces::bestSize(font()); }

QSize FretboardView::minimumSizeHint() const { return NeckPlaces::smallestSize(font()); }

QPoint FretboardView::placeOf(int string, int fret) const {
  return neck().cell(string, fret).center().toPoint();
}

// ---- painting

void FretboardView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  NeckPainter::Shown shown{m_chord >= 0 ? &m_grip : nullptr, m_next >= 0 ? &m_nextGrip : nullptr,
                           std::nullopt};
  if (hasFocus()) shown.cursor = {m_string, m_fret};
  const NeckPlaces places = neck();
  const Shades shades(palette());
  NeckPainter(places, m_words, shades, font()).paint(painter, shown);
}

// ---- words

QString FretboardView::cellText(int string, int fret) const {
  const QString name = m_words.string(string);
  const QString note = m_words.noteAt(string, fret);
  return fret == 0 ? tr("%1, open: %2").arg(name, note)
                   : tr("%1, fret %2: %3").arg(name).arg(fret).arg(note);
}

QString FretboardView::spokenText() const {
  const QString cell = cellText(m_string, m_fret);
  if (!isKnown(m_chord)) return cell;
  const QBChord& chord = *m_song->allChords()[static_cast<std::size_t>(m_chord)];
  const QString grip = tr("%1. %2", "a fret, the grip of a chord").arg(cell, m_words.grip(chord));
  if (!isKnown(m_next)) return grip;
  const QBChord& next = *m_song->allChords()[static_cast<std::size_t>(m_next)];
  return tr("%1. Next: %2", "a chord, another one").arg(grip, m_words.grip(next));
}

QRect FretboardView::spokenRect() const { return neck().cell(m_string, m_fret).toAlignedRect(); }

// ---- input

void FretboardView::mousePressEvent(QMouseEvent* event) {
  const auto cell = neck().cellAt(event->position());
  if (event->button() != Qt::LeftButton || !cell) return QWidget::mousePressEvent(event);
  moveCursor(cell->string, cell->fret);
  emit clicked(cell->string, cell->fret);
}

void FretboardView::keyPressEvent(QKeyEvent* event) {
  const int towardsBridge = m_leftHanded ? -1 : 1;
  switch (event->key()) {
    case Qt::Key_Up:
      return moveCursor(m_string + 1, m_fret);
    case Qt::Key_Down:
      return moveCursor(m_string - 1, m_fret);
    case Qt::Key_Left:
      return moveCursor(m_string, m_fret - towardsBridge);
    case Qt::Key_Right:
      return moveCursor(m_string, m_fret + towardsBridge);
    case Qt::Key_Home:
      return moveCursor(m_string, 0);
    case Qt::Key_End:
      return moveCursor(m_string, frets());
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      emit clicked(m_string, m_fret);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

bool FretboardView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const auto cell = neck().cellAt(help->pos());
  if (cell)
    QToolTip::showText(help->globalPos(), cellText(cell->string, cell->fret), this,
                       neck().cell(cell->string, cell->fret).toAlignedRect());
  else
    QToolTip::hideText();
  return true;
}

void FretboardView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

}  // namespace korvel::ui
