// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse in the roll.
#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "music/Ticks.h"
#include "ui/roll/RollView.h"

namespace korvel::ui {
namespace {

// Of a moment that is to be heard once, in seconds.
constexpr double kShortest = 0.4;
constexpr double kLongest = 3;

}  // namespace

void RollView::mousePressEvent(QMouseEvent* event) {
  const QPointF place = event->position();
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  m_gesture = {.from = place, .now = place, .keys = event->modifiers()};
  if (const auto beat = m_scale.beatNear(place)) {
    m_gesture.doing = Doing::beat;
    m_gesture.beat = *beat;
  } else if (hits().isInLanes(place)) {
    m_gesture.doing = Doing::pressing;
    m_gesture.tone = hits().toneAt(place);
    if (!m_gesture.tone) m_gesture.candidate = hits().candidateAt(place);
  }
  if (place.x() >= m_scale.names() && place.x() < m_scale.x(m_roll.chords()))
    choose(m_scale.chordAt(place.x()));
  else
    QAbstractScrollArea::mousePressEvent(event);
}

void RollView::mouseMoveEvent(QMouseEvent* event) {
  m_gesture.now = event->position();
  m_gesture.keys = event->modifiers();
  if (m_gesture.doing == Doing::nothing) {
    updatePointer(event->position());
    return QAbstractScrollArea::mouseMoveEvent(event);
  }
  const double distance = (m_gesture.now - m_gesture.from).manhattanLength();
  if (m_gesture.doing == Doing::pressing && distance >= QApplication::startDragDistance())
    beginDrag();
  viewport()->update();
}

void RollView::mouseReleaseEvent(QMouseEvent* event) {
  if (m_gesture.doing == Doing::nothing) return QAbstractScrollArea::mouseReleaseEvent(event);
  m_gesture.now = event->position();
  m_gesture.keys = event->modifiers();
  if (m_gesture.doing == Doing::pressing)
    click();
  else
    finishDrag();
  cancelGesture();
}

void RollView::cancelGesture() {
  m_gesture = {};
  viewport()->update();
}

/// An empty place is drawn on, or with Ctrl a band chooses what it touches.
void RollView::beginDrag() {
  if (m_gesture.candidate) return cancelGesture();
  if (!m_gesture.tone) {
    m_gesture.doing = m_gesture.keys & Qt::ControlModifier ? Doing::band : Doing::drawing;
    return;
  }
  m_gesture.doing = m_gesture.tone->atEnd ? Doing::lengthening : Doing::moving;
  const ToneIndex place = placeOf(m_gesture.tone->index);
  if (std::ranges::find(m_chosen, place) == m_chosen.end()) m_chosen = {place};
}

/// What is clicked is heard in the recording, if there is one; a tone goes by it, and a candidate
/// becomes one. With Shift the synthesiser plays it, and Ctrl chooses it; nothing changes then.
void RollView::click() {
  const bool plays = m_gesture.keys & Qt::ShiftModifier;
  const bool chooses = m_gesture.keys & Qt::ControlModifier;
  if (m_gesture.tone) {
    const ToneRoll::Tone tone = m_roll.tones()[m_gesture.tone->index];
    const ToneIndex place = placeOf(m_gesture.tone->index);
    const bool isKnown = m_gesture.tone->index < m_notes.signs.size();
    const int note = isKnown ? m_notes.signs[m_gesture.tone->index].note : RollNotes::kNone;
    if (plays) return emit pitchWanted(tone.pitch, kShortest);
    listenTo(m_roll.begin(tone.chord), tone.steps);
    if (chooses) return toggleChosen(place);
    if (m_backdrop.time().isKnown()) emit dropWanted(place, note);
  } else if (m_gesture.candidate) {
    const RollNotes::Candidate candidate = m_notes.candidates[*m_gesture.candidate];
    if (plays) return emit pitchWanted(candidate.pitch, kShortest);
    listenTo(candidate.from, candidate.steps);
    if (!chooses) emit takeWanted(candidate.note);
  } else if (!chooses) {
    m_chosen.clear();
  }
}

void RollView::listenTo(double from, double steps) {
  const RecordedTime& time = m_backdrop.time();
  if (!time.isKnown()) return;
  const double begin = time.secondsOf(from);
  emit listenAt(std::max(begin, 0.0),
                std::clamp(time.secondsOf(from + steps) - begin, kShortest, kLongest));
}

void RollView::toggleChosen(const ToneIndex& place) {
  if (std::erase(m_chosen, place) == 0) m_chosen.push_back(place);
  viewport()->update();
}

ToneIndex RollView::placeOf(std::size_t tone) const {
  return {m_roll.tones()[tone].chord, m_roll.tones()[tone].string};
}

void RollView::finishDrag() {
  const double steps = draggedSteps();
  switch (m_gesture.doing) {
    case Doing::beat:
      if (std::abs(m_scale.xOfStep(m_gesture.beat) - m_gesture.now.x()) > RollScale::kReachOfLine)
        emit beatDragged(m_gesture.beat, m_scale.stepAt(m_gesture.now.x()));
      return;
    case Doing::moving:
      if (steps != 0 || draggedHalfTones() != 0)
        emit tonesMoved(std::exchange(m_chosen, {}), steps, draggedHalfTones(), isFree());
      return;
    case Doing::lengthening:
      if (steps != 0) emit tonesLengthened(std::exchange(m_chosen, {}), steps, isFree());
      return;
    case Doing::drawing: {
      const QRectF drawn = drawnRect();
      return emit toneDrawn(hits().pitchAt(m_gesture.from.y()), m_scale.stepAt(drawn.left()),
                            drawn.width() / m_scale.width(1), isFree());
    }
    case Doing::band:
      m_chosen = hits().tonesIn(QRectF(m_gesture.from, m_gesture.now).normalized());
      return;
    case Doing::pressing:
    case Doing::nothing:
      return;
  }
}

/// Onto the grid, unless Alt is held.
double RollView::draggedSteps() const {
  const double steps = (m_gesture.now.x() - m_gesture.from.x()) / m_scale.width(1);
  const int unit = isFree() ? 1 : m_roll.stepsOfColumn();
  return std::round(steps / unit) * unit;
}

int RollView::draggedHalfTones() const {
  return hits().pitchAt(m_gesture.now.y()) - hits().pitchAt(m_gesture.from.y());
}

/// From where the button went down to where the pointer is, a column at least.
QRectF RollView::drawnRect() const {
  const int unit = isFree() ? 1 : m_roll.stepsOfColumn();
  const auto onGrid = [&](double x, auto round) {
    return m_scale.xOfStep(round(m_scale.stepAt(x) / unit) * unit);
  };
  const double left = std::min(m_gesture.from.x(), m_gesture.now.x());
  const double right = std::max(m_gesture.from.x(), m_gesture.now.x());
  const double begin = onGrid(left, [](double steps) { return std::floor(steps); });
  const double end = onGrid(right, [](double steps) { return std::ceil(steps); });
  return {begin, m_scale.top(hits().pitchAt(m_gesture.from.y())),
          std::max(end - begin, m_scale.width(unit)), m_scale.laneHeight()};
}

std::vector<QRectF> RollView::draggedRects() const {
  std::vector<QRectF> rects;
  if (m_gesture.doing == Doing::drawing) rects.push_back(drawnRect());
  if (m_gesture.doing != Doing::moving && m_gesture.doing != Doing::lengthening) return rects;
  const double by = draggedSteps() * m_scale.width(1);
  const double up = draggedHalfTones() * m_scale.laneHeight();
  for (const ToneIndex& place : m_chosen) {
    const QRectF rect = toneRect(place);
    if (m_gesture.doing == Doing::moving)
      rects.push_back(rect.translated(by, -up));
    else
      rects.push_back(rect.adjusted(0, 0, std::max(by, 3 - rect.width()), 0));
  }
  return rects;
}

void RollView::updatePointer(const QPointF& place) {
  const auto tone = hits().toneAt(place);
  if (m_scale.beatNear(place) || (tone && tone->atEnd))
    viewport()->setCursor(Qt::SizeHorCursor);
  else if (tone || hits().candidateAt(place))
    viewport()->setCursor(Qt::PointingHandCursor);
  else
    viewport()->unsetCursor();
}

}  // namespace korvel::ui
