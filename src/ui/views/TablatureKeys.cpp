// SPDX-License-Identifier: GPL-3.0-or-later
#include <QKeyEvent>
#include <algorithm>
#include <iterator>

#include "model/songs/QBSong.h"
#include "tab/text/QBTabMatrix.h"
#include "ui/views/TablatureView.h"
#include "workflow/editing/SongEditor.h"

namespace korvel::ui {
namespace {

constexpr int kMillisecondsToSecondDigit = 1000;

}  // namespace

/// A window's shortcut for a key that edits here, such as Space or a digit, has to wait.
bool TablatureView::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool plain = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (plain &&
        (key->key() == Qt::Key_Delete || (key->key() >= Qt::Key_0 && key->key() <= Qt::Key_9)))
      event->accept();
  }
  if (event->type() == QEvent::KeyPress && changeShapeByKey(*static_cast<QKeyEvent*>(event)))
    return true;
  return QAbstractScrollArea::event(event);
}

/// Only while chords are selected, so that Tab leads out of the tablature at all other times.
bool TablatureView::changeShapeByKey(const QKeyEvent& event) {
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  if (!isTab || event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  if (m_locked || !m_selection.contains(m_chord)) return false;
  const bool back = event.key() == Qt::Key_Backtab || event.modifiers() & Qt::ShiftModifier;
  emit shapeWanted(back ? -1 : 1);
  return true;
}

void TablatureView::keyPressEvent(QKeyEvent* event) {
  if (zoomByKey(*event) || copyByKey(*event) || moveByKey(*event) || editByKey(*event)) return;
  QAbstractScrollArea::keyPressEvent(event);
}

bool TablatureView::zoomByKey(QKeyEvent& event) {
  if (event.matches(QKeySequence::ZoomIn) ||
      (event.modifiers() & Qt::ControlModifier && event.key() == Qt::Key_Equal))
    zoomIn();
  else if (event.matches(QKeySequence::ZoomOut))
    zoomOut();
  else if (event.modifiers() & Qt::ControlModifier && event.key() == Qt::Key_0)
    resetZoom();
  else
    return false;
  return true;
}

bool TablatureView::copyByKey(QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy))
    copy();
  else if (event.matches(QKeySequence::SelectAll))
    selectAll();
  else if (event.key() == Qt::Key_Escape && m_selection.first >= 0)
    selectNone();
  else if (event.key() == Qt::Key_Escape && !m_song)
    emit songWanted();
  else
    return false;
  return true;
}

/// Arrows go by chord and string, with Ctrl past silent chords; Home and End to the ends of the
/// system, with Ctrl of the song. Shift selects.
bool TablatureView::moveByKey(QKeyEvent& event) {
  if (m_layout.chords() == 0 || event.modifiers() & Qt::AltModifier) return false;
  const bool selecting = event.modifiers() & Qt::ShiftModifier;
  const bool far = event.modifiers() & Qt::ControlModifier;
  const int last = m_layout.chords() - 1;
  const auto place = m_layout.nearPlace(m_chord);
  const TabLayout::System* system = place ? m_layout.systemAt(place->y) : nullptr;
  const auto go = [&](std::optional<int> chord) { moveTo(chord, m_string, selecting); };
  switch (event.key()) {
    case Qt::Key_Left:
      go(far ? m_layout.previousDrawn(m_chord) : std::max(m_chord - 1, 0));
      return true;
    case Qt::Key_Right:
      go(far ? m_layout.nextDrawn(m_chord) : std::min(m_chord + 1, last));
      return true;
    case Qt::Key_Up:
      moveTo(m_chord, m_string + 1, selecting);
      return true;
    case Qt::Key_Down:
      moveTo(m_chord, m_string - 1, selecting);
      return true;
    case Qt::Key_Home:
      go(far || !system ? 0 : m_layout.begin(*system)->chord);
      return true;
    case Qt::Key_End:
      go(far || !system ? last : std::prev(m_layout.end(*system))->chord);
      return true;
    case Qt::Key_PageUp:
      go(chordOnPage(-1));
      return true;
    case Qt::Key_PageDown:
      go(chordOnPage(1));
      return true;
    default:
      return false;
  }
}

/// The chord in the same column so many pages of the view further down.
int TablatureView::chordOnPage(int pages) const {
  const auto place = m_layout.nearPlace(m_chord);
  if (!place) return m_chord;
  const int rows = std::max(kRowsToNextSystem, m_canvas.rowAt(viewport()->height()));
  const auto& systems = m_layout.systems();
  const int row = std::clamp(place->y + pages * rows, systems.front().top, systems.back().top);
  const TabLayout::System& system = *m_layout.systemAt(row);
  const auto first = m_layout.begin(system);
  const auto after = std::upper_bound(first, m_layout.end(system), place->x,
                                      [](int x, const auto& other) { return x < other.x; });
  if (first == m_layout.end(system)) return m_chord;
  return after == first ? first->chord : std::prev(after)->chord;
}

bool TablatureView::editByKey(QKeyEvent& event) {
  // Where all chords are silent none has a place, but tones are typed all the same.
  const auto place = m_layout.nearPlace(m_chord);
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier) || m_layout.chords() == 0)
    return false;
  const int key = event.key();
  if (key == Qt::Key_Space) {
    emit playToggled();
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    const auto mark = m_doubts.find(m_chord);
    if (mark != m_doubts.end() && !mark->second.words.isEmpty() && !m_locked)
      emit confirmWanted();
    else if (place)
      emit clicked(place->x, rowOfString(place->y, m_string));
  } else if (m_locked) {
    return false;
  } else if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
    emit removalWanted(m_chord, m_string);
  } else if (key >= Qt::Key_0 && key <= Qt::Key_9) {
    typeDigit(key - Qt::Key_0);
  } else {
    return false;
  }
  return true;
}

void TablatureView::typeDigit(int digit) {
  const int both = m_typed.fret * 10 + digit;
  const bool continues = m_typed.since.isValid() && m_typed.chord == m_chord &&
                         m_typed.string == m_string && both <= SongEditor::kHighestFret &&
                         m_typed.fret > 0 && m_typed.since.elapsed() < kMillisecondsToSecondDigit;
  m_typed.chord = m_chord;
  m_typed.string = m_string;
  m_typed.fret = continues ? both : digit;
  m_typed.since.start();
  emit fretTyped(m_chord, m_string, m_typed.fret, continues);
}

}  // namespace korvel::ui
