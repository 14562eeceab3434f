// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PageView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/songs/QBSong.h"
#include "tab/page/PageOfSong.h"
#include "ui/desktop/Text.h"
#include "ui/page/WordsLine.h"

namespace korvel::ui {
namespace {

constexpr int kSmallestPage = 30;
constexpr int kLargestPage = 500;
constexpr int kZoomStep = 10;
constexpr double kMargin = 16;  ///< Pixels around the page.

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setAccessibleName(tr("Page"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setBackgroundRole(QPalette::Base);
}

/// What is being typed has nobody to tell any more.
PageView::~PageView() {
  if (m_typing) m_typing->disconnect(this);
}

// ---- what is shown

void PageView::setSong(QBSong* song) {
  endTyping(false);
  if (song != m_song) verticalScrollBar()->setValue(0);
  m_song = song;
  m_playing = -1;
  refresh();
}

void PageView::setLook(const PageLook& look) {
  m_look = look;
  refresh();
}

void PageView::refresh() {
  m_isOld = !isVisible();
  if (m_isOld) return;
  m_page = {};
  m_places = {};
  if (m_song) {
    const PageSource source = pageSourceOf(*m_song);
    m_page = pageOf(source, m_look);
    m_places = PagePlaces(*m_song, source, m_page);
  }
  layOut();
  announce(*this);
  emit refreshed();
}

void PageView::layOut() {
  const double width = std::max(1.0, viewport()->width() - 2 * kMargin);
  m_sheet = m_song ? PageSheet(m_page, pageFont(), width, PageSheet::Parts::allWithRoomForWords)
                   : PageSheet();
  const int below = static_cast<int>(std::ceil(m_sheet.height() + 2 * kMargin));
  verticalScrollBar()->setRange(0, std::max(0, below - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(static_cast<int>(m_sheet.lineHeight() * 2));
  viewport()->update();
  placeTyping();
}

QFont PageView::pageFont() const {
  QFont font = this->font();
  const double scale = m_zoom / 100.0;
  if (font.pointSizeF() > 0)
    font.setPointSizeF(font.pointSizeF() * scale);
  else
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * scale))));
  return font;
}

QPointF PageView::origin() const { return {kMargin, kMargin - verticalScrollBar()->value()}; }

const PageChord& PageView::chordAt(const PageSheet::Chord& chord) const {
  return m_page.sections[static_cast<std::size_t>(chord.section)]
      .bars[static_cast<std::size_t>(chord.bar)]
      .chords[static_cast<std::size_t>(chord.chord)];
}

QRect PageView::chordRect(int chord) const {
  const auto place = m_places.of(chord);
  const PageSheet::Chord* shown = place ? m_sheet.chordOf(*place) : nullptr;
  return shown ? shown->place.translated(origin()).toAlignedRect() : QRect();
}

// ---- cursor and playing

void PageView::showCursor(int chord) {
  m_chord = chord;
  viewport()->update();
  const auto place = m_places.of(chord);
  if (const PageSheet::Bar* bar = place ? m_sheet.barOf(*place) : nullptr; bar && isVisible())
    reveal(bar->place);
  announce(*this);
}

void PageView::showPlaying(int chord) {
  if (chord == m_playing) return;
  const auto before = m_places.of(m_playing);
  const auto now = m_places.of(chord);
  m_playing = chord;
  viewport()->update();
  // Within a bar the user may look elsewhere.
  if (!now || (before && before->section == now->section && before->bar == now->bar)) return;
  if (const PageSheet::Bar* bar = m_sheet.barOf(*now); bar && isVisible()) reveal(bar->place);
}

/// Scrolls no further than needed, but shows the next line as well.
void PageView::reveal(const QRectF& place) {
  const QRectF seen = place.translated(origin());
  QScrollBar& bar = *verticalScrollBar();
  if (seen.top() < 0) bar.setValue(static_cast<int>(bar.value() + seen.top() - kMargin));
  const double below = seen.bottom() + seen.height() - viewport()->height();
  if (below > 0) bar.setValue(static_cast<int>(bar.value() + below));
}

void PageView::choose(const PageSheet::Chord& chord) { emit chordChosen(chordAt(chord).index); }

// ---- painting

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Shades shades(palette());
  painter.fillRect(event->rect(), shades.base);
  if (m_page.isEmpty()) {
    painter.setPen(shades.faintText);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, spokenText());
    return;
  }
  painter.translate(origin());
  const QRectF wanted = QRectF(event->rect()).translated(-origin());
  paintMarks(painter, shades);
  m_sheet.paint(painter, shades, wanted.top(), wanted.bottom());
  paintCursor(painter, shades);
}

void PageView::paintMarks(QPainter& painter, const Shades& shades) const {
  const auto playing = m_places.of(m_playing);
  const PageSheet::Bar* bar = playing ? m_sheet.barOf(*playing) : nullptr;
  if (!bar) return;
  const double pen = std::max(2.0, m_sheet.lineHeight() / 8);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(shades.mark, pen));
  painter.setBrush(shades.loop);
  painter.drawRoundedRect(bar->place.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2), 2 * pen,
                          2 * pen);
}

void PageView::paintCursor(QPainter& painter, const Shades& shades) const {
  const auto place = m_places.of(m_chord);
  const PageSheet::Chord* chord = place ? m_sheet.chordOf(*place) : nullptr;
  if (!chord) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(hasFocus() ? QPen(shades.accent, 2) : QPen(shades.faintText, 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(chord->place.adjusted(-2, 1, 0, -1));
}

// ---- words for screen readers

QString PageView::wordsOf(const Place& place) const {
  return toText(m_page.sections[static_cast<std::size_t>(place.section)]
                    .bars[static_cast<std::size_t>(place.bar)]
                    .wordText(static_cast<std::size_t>(place.time)));
}

QString PageView::spokenText() const {
  if (!m_song) return tr("A song's chords to sing from stand here");
  if (m_page.isEmpty()) return tr("No chord of this song has a name");
  const auto place = m_places.of(m_chord);
  if (!place) return toText(m_page.title) + ". " + PageSheet::factsOf(m_page);
  const PageSection& section = m_page.sections[static_cast<std::size_t>(place->section)];
  const PageBar& bar = section.bars[static_cast<std::size_t>(place->bar)];
  QStringList words;
  if (!section.letter.empty()) words << tr("Section %1").arg(toText(section.letter));
  if (m_page.isInBars) words << tr("bar %1").arg(bar.number);
  if (place->chord < static_cast<int>(bar.chords.size())) {
    const PageChord& chord = bar.chords[static_cast<std::size_t>(place->chord)];
    words << (chord.name.empty() ? tr("no chord") : toText(chord.name));
    if (chord.sounding != chord.name && !chord.sounding.empty())
      words << tr("sounds as %1").arg(toText(chord.sounding));
    if (chord.isDoubtful) words << tr("doubtful");
  }
  if (const QString sung = wordsOf(*place); !sung.isEmpty()) words << sung;
  return words.join(", ");
}

QRect PageView::spokenRect() const { return chordRect(m_chord); }

// ---- changes from outside

void PageView::setZoom(int percent) {
  percent = std::clamp(percent, kSmallestPage, kLargestPage);
  if (percent == m_zoom) return;
  m_zoom = percent;
  layOut();
  emit zoomChanged(percent);
}

void PageView::zoomIn() { setZoom(m_zoom + kZoomStep); }

void PageView::zoomOut() { setZoom(m_zoom - kZoomStep); }

/// A scroll bar may come with the first words, while the next ones are typed.
void PageView::resizeEvent(QResizeEvent*) { layOut(); }

void PageView::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  if (!m_isOld) return;
  refresh();
  showCursor(m_chord);
}

void PageView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) layOut();
}

void PageView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void PageView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

// ---- input

void PageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  endTyping(true);
  const QPointF place = event->position() - origin();
  if (const PageSheet::Grip* grip = m_sheet.gripUnder(place)) return emit shapeWanted(grip->grip);
  const PageSheet::Chord* chord = m_sheet.chordUnder(place);
  if (!chord) return;
  choose(*chord);
  if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
    emit listenWanted(chordAt(*chord).index, event->modifiers() & Qt::ShiftModifier);
}

/// Below the chords of a bar, or anywhere in one where no line for words is.
void PageView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPointF place = event->position() - origin();
  const PageSheet::Bar* bar = m_sheet.barUnder(place);
  if (event->button() != Qt::LeftButton || !bar)
    return QAbstractScrollArea::mouseDoubleClickEvent(event);
  for (int time = 0; time < static_cast<int>(bar->words.size()); ++time)
    if (bar->words[static_cast<std::size_t>(time)].contains(place))
      return typeWordsAt({bar->section, time, bar->bar, 0});
  if (bar->words.empty()) typeWordsAt({bar->section, 0, bar->bar, 0});
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  setZoom(m_zoom + event->angleDelta().y() / QWheelEvent::DefaultDeltasPerStep * kZoomStep);
  event->accept();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (isPlain && event->key() == Qt::Key_Space) return emit playToggled();
  if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                  event->key() == Qt::Key_F2))
    return typeWords();
  if (event->modifiers() & Qt::ControlModifier && event->key() == Qt::Key_Equal) return zoomIn();
  if (!isPlain || !moveByKey(*event)) QAbstractScrollArea::keyPressEvent(event);
}

bool PageView::moveByKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
      moveBy(-1);
      return true;
    case Qt::Key_Right:
      moveBy(1);
      return true;
    case Qt::Key_Up:
      moveByLines(-1);
      return true;
    case Qt::Key_Down:
      moveByLines(1);
      return true;
    case Qt::Key_Home:
      if (!m_sheet.chords().empty()) choose(m_sheet.chords().front());
      return true;
    case Qt::Key_End:
      if (!m_sheet.chords().empty()) choose(m_sheet.chords().back());
      return true;
    default:
      return false;
  }
}

/// To another one: those that go on are the chord before.
void PageView::moveBy(int chords) {
  const auto place = m_places.of(m_chord);
  const PageSheet::Chord* now = place ? m_sheet.chordOf(*place) : nullptr;
  const auto& all = m_sheet.chords();
  if (all.empty()) return;
  if (!now) return choose(all.front());
  for (auto at = now - all.data() + chords; at >= 0 && at < std::ssize(all); at += chords) {
    const PageSheet::Chord& other = all[static_cast<std::size_t>(at)];
    if (chordAt(other).index != chordAt(*now).index) return choose(other);
  }
}

/// To what is nearest in the line above or below.
void PageView::moveByLines(int lines) {
  const auto place = m_places.of(m_chord);
  const PageSheet::Chord* now = place ? m_sheet.chordOf(*place) : nullptr;
  if (!now) return moveBy(1);
  if (const PageSheet::Chord* best = m_sheet.nearestByLines(*now, lines)) choose(*best);
}

// ---- typing of words

void PageView::typeWords() {
  if (const auto place = m_places.of(m_chord)) typeWordsAt(*place);
}

void PageView::typeWordsAt(const Place& place) {
  endTyping(true);
  const PageSheet::Bar* bar = m_sheet.barOf(place);
  if (!bar || !m_places.ticksOf(place.section, place.time, place.bar)) return;
  reveal(bar->place);
  m_typedAt = place;
  m_typing = new WordsLine(wordsOf(place), viewport());
  m_typing->setAccessibleName(tr("Lyrics of the bar"));
  placeTyping();
  connect(m_typing, &WordsLine::left, this, [this] { endTyping(true); });
  connect(m_typing, &WordsLine::ended, this, [this](bool keep) {
    endTyping(keep);
    setFocus();
  });
  connect(m_typing, &WordsLine::nextWanted, this, &PageView::typeNextWords);
  m_typing->selectAll();
  m_typing->show();
  m_typing->setFocus();
}

/// Where the words of the bar are or, without any, below its chords.
void PageView::placeTyping() {
  const PageSheet::Bar* bar = m_typing ? m_sheet.barOf(m_typedAt) : nullptr;
  if (!bar) return;
  QRectF line(bar->place.left(), bar->place.bottom() - m_sheet.lineHeight(), bar->place.width(),
              m_sheet.lineHeight());
  if (m_typedAt.time < static_cast<int>(bar->words.size()))
    line = bar->words[static_cast<std::size_t>(m_typedAt.time)];
  m_typing->setFont(pageFont());
  const QSize size(std::max(static_cast<int>(line.width()), 12 * fontMetrics().averageCharWidth()),
                   m_typing->sizeHint().height());
  m_typing->setGeometry(QRect((line.topLeft() + origin()).toPoint(), size));
}

/// The bars of a section one after the other, each time that it is played.
void PageView::typeNextWords() {
  Place next = m_typedAt;
  ++next.bar;
  endTyping(true);
  const auto bars = next.section < static_cast<int>(m_page.sections.size())
                        ? std::ssize(m_page.sections[static_cast<std::size_t>(next.section)].bars)
                        : 0;
  if (next.bar >= bars) {
    next = {next.section, next.time + 1, 0, 0};
    if (!m_places.ticksOf(next.section, next.time, 0)) next = {next.section + 1, 0, 0, 0};
  }
  setFocus();
  typeWordsAt(next);
}

/// What is not changed is not told.
void PageView::endTyping(bool keep) {
  if (!m_typing) return;
  WordsLine* typing = std::exchange(m_typing, nullptr);
  typing->disconnect(this);
  typing->hide();
  typing->deleteLater();
  const QString words = typing->text().trimmed();
  const auto ticks = m_places.ticksOf(m_typedAt.section, m_typedAt.time, m_typedAt.bar);
  if (keep && ticks && words != wordsOf(m_typedAt))
    emit wordsTyped(ticks->first, ticks->end, words);
}

}  // namespace korvel::ui
