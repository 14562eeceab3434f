// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and wheel of the roll, and what it says of a place.
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "music/ChordStep.h"
#include "ui/roll/RollView.h"
#include "ui/views/ChordWords.h"

namespace korvel::ui {
namespace {

/// Of the recording, or from the beginning on.
double secondsOf(QBSong& song, int chord) {
  if (!song.isOnBeats()) return chord * kSecondsOfChord;
  const SongTime time(song);
  const double begin = time.isAsRecorded() ? 0 : time.secondsOf(time.begin());
  return std::max(time.secondsOf(time.tickOf(static_cast<std::size_t>(chord))) - begin, 0.0);
}

QString timeOf(QBSong& song, int chord) {
  const int seconds = static_cast<int>(secondsOf(song, chord));
  return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

}  // namespace

void RollView::choose(int chord) {
  if (m_roll.chords() == 0) return;
  showCursor(std::clamp(chord, 0, m_roll.chords() - 1));
  emit chordChosen(m_cursor);
}

/// The wheel goes through time, with Ctrl it zooms.
void RollView::wheelEvent(QWheelEvent* event) {
  const QPoint turned = event->angleDelta();
  if (event->modifiers() & Qt::ControlModifier) {
    constexpr double kNotch = 120;
    zoomAround(m_zoom * std::pow(1.25, turned.y() / kNotch), event->position().x());
  } else {
    QWheelEvent sideways(event->position(), event->globalPosition(), event->pixelDelta(),
                         QPoint(turned.x() != 0 ? turned.x() : turned.y(), 0), event->buttons(),
                         event->modifiers(), event->phase(), event->inverted());
    QApplication::sendEvent(horizontalScrollBar(), &sideways);
  }
  event->accept();
}

void RollView::keyPressEvent(QKeyEvent* event) {
  if (editByKey(*event)) return;
  const int page = std::max(1, static_cast<int>(m_scale.widthBesideNames() / m_scale.step()));
  if (event->matches(QKeySequence::ZoomIn) || event->key() == Qt::Key_Plus) return zoomIn();
  if (event->matches(QKeySequence::ZoomOut) || event->key() == Qt::Key_Minus) return zoomOut();
  switch (event->key()) {
    case Qt::Key_Left:
      return choose(m_cursor - 1);
    case Qt::Key_Right:
      return choose(m_cursor + 1);
    case Qt::Key_PageUp:
      return choose(m_cursor - page);
    case Qt::Key_PageDown:
      return choose(m_cursor + page);
    case Qt::Key_Home:
      return choose(0);
    case Qt::Key_End:
      return choose(m_roll.chords() - 1);
    case Qt::Key_Space:
      emit playToggled();
      return;
    case Qt::Key_0:
      if (event->modifiers() & Qt::ControlModifier) return resetZoom();
      [[fallthrough]];
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

/// Up and Down go from tone to tone in the column, candidates as well; what they have gone to is
/// dragged by Ctrl and Shift, a step of the grid at a time.
bool RollView::editByKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers keys = event.modifiers() & ~Qt::KeypadModifier;
  const int key = event.key();
  if (keys == Qt::NoModifier && (key == Qt::Key_Up || key == Qt::Key_Down))
    goToSpot(key == Qt::Key_Up ? 1 : -1);
  else if (key == Qt::Key_Escape && (m_gesture.doing != Doing::nothing || !m_chosen.empty())) {
    m_chosen.clear();
    cancelGesture();
  } else if (!m_spot)
    return false;
  else if (key == Qt::Key_Return || key == Qt::Key_Enter)
    takeOrConfirm(*m_spot);
  else if (key == Qt::Key_Delete || key == Qt::Key_Backspace)
    drop(*m_spot);
  else
    return dragByKey(key, keys);
  return true;
}

bool RollView::dragByKey(int key, Qt::KeyboardModifiers keys) {
  if (m_spot->isCandidate || (keys != Qt::ControlModifier && keys != Qt::ShiftModifier))
    return false;
  const bool isUpwards = key == Qt::Key_Right || key == Qt::Key_Up;
  const bool isInTime = key == Qt::Key_Right || key == Qt::Key_Left;
  if (!isInTime && (keys == Qt::ShiftModifier || (key != Qt::Key_Up && key != Qt::Key_Down)))
    return false;
  const std::vector<ToneIndex> tones{placeOf(m_spot->index)};
  const double steps = isUpwards ? m_roll.stepsOfColumn() : -m_roll.stepsOfColumn();
  if (keys == Qt::ShiftModifier)
    emit tonesLengthened(tones, steps, false);
  else if (isInTime)
    emit tonesMoved(tones, steps, 0, false);
  else
    emit tonesMoved(tones, 0, isUpwards ? 1 : -1, false);
  return true;
}

/// In the column of the cursor, from the lowest up.
std::vector<RollView::Spot> RollView::spots() const {
  std::vector<std::pair<int, Spot>> found;
  for (std::size_t i = 0; i < m_roll.tones().size(); ++i)
    if (m_roll.tones()[i].chord == m_cursor) found.push_back({m_roll.tones()[i].pitch, {false, i}});
  for (std::size_t i = 0; i < m_notes.candidates.size(); ++i)
    if (m_notes.candidates[i].chord == m_cursor)
      found.push_back({m_notes.candidates[i].pitch, {true, i}});
  std::ranges::stable_sort(found, {}, &std::pair<int, Spot>::first);
  std::vector<Spot> spots;
  for (const auto& each : found) spots.push_back(each.second);
  return spots;
}

void RollView::goToSpot(int by) {
  const std::vector<Spot> all = spots();
  if (all.empty()) return;
  const auto here = m_spot ? std::ranges::find(all, *m_spot) : all.end();
  const auto last = std::ssize(all) - 1;
  const auto index = here == all.end()
                         ? (by > 0 ? 0 : last)
                         : std::clamp<std::ptrdiff_t>(here - all.begin() + by, 0, last);
  m_spot = all[static_cast<std::size_t>(index)];
  viewport()->update();
  announce(*this);
}

void RollView::drop(const Spot& spot) {
  if (spot.isCandidate) return;
  const bool isKnown = spot.index < m_notes.signs.size();
  emit dropWanted(placeOf(spot.index), isKnown ? m_notes.signs[spot.index].note : RollNotes::kNone);
}

void RollView::takeOrConfirm(const Spot& spot) {
  if (spot.isCandidate) return emit takeWanted(m_notes.candidates[spot.index].note);
  const bool isKnown = spot.index < m_notes.signs.size();
  if (isKnown && m_notes.signs[spot.index].note != RollNotes::kNone)
    emit confirmWanted(m_notes.signs[spot.index].note);
}

QRectF RollView::rectOf(const Spot& spot) const {
  return spot.isCandidate ? hits().rectOf(m_notes.candidates[spot.index])
                          : hits().rectOf(m_roll.tones()[spot.index]);
}

// ---- words

QString RollView::spokenText() const { return m_spot ? wordsOf(*m_spot) : words(m_cursor); }

QString RollView::words(int chord) const {
  if (!m_song || chord < 0 || chord >= static_cast<int>(m_song->allChords().size())) return {};
  const QBChord& shown = *m_song->allChords()[static_cast<std::size_t>(chord)];
  return tr("Chord %1, %2. %3", "number, time, tones")
      .arg(chord + 1)
      .arg(timeOf(*m_song, chord), ChordWords(tuningOf(m_song)).grip(shown));
}

QString RollView::wordsOf(const Spot& spot) const {
  if (spot.isCandidate) {
    const RollNotes::Candidate& candidate = m_notes.candidates[spot.index];
    return tr("%1, not taken for a note, %2 per cent", "pitch, probability")
        .arg(RollPainter::nameOf(candidate.pitch))
        .arg(std::lround(candidate.probability * 100));
  }
  const ToneRoll::Tone& tone = m_roll.tones()[spot.index];
  const QString plain =
      tr("%1, %2, fret %3", "pitch, string, fret")
          .arg(RollPainter::nameOf(tone.pitch), ChordWords(tuningOf(m_song)).string(tone.string))
          .arg(tone.fret);
  const RollNotes::Sign sign =
      spot.index < m_notes.signs.size() ? m_notes.signs[spot.index] : RollNotes::Sign();
  if (sign.isLocked) return tr("%1, as you decided", "a tone").arg(plain);
  if (sign.note == RollNotes::kNone) return plain;
  return tr("%1, %2 per cent", "a tone, its probability")
      .arg(plain)
      .arg(std::lround(sign.probability * 100));
}

bool RollView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip || m_roll.chords() == 0)
    return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int chord = m_scale.chordAt(help->pos().x());
  if (const auto tone = hits().toneAt(help->pos()))
    QToolTip::showText(help->globalPos(), wordsOf({false, tone->index}), viewport());
  else if (const auto candidate = hits().candidateAt(help->pos()))
    QToolTip::showText(help->globalPos(), wordsOf({true, *candidate}), viewport());
  else
    QToolTip::showText(help->globalPos(), words(chord), viewport(), chordRect(chord));
  return true;
}

}  // namespace korvel::ui
