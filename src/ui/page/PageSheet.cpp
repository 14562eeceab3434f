// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PageSheet.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "ui/desktop/Text.h"
#include "ui/page/laid/GripRows.h"
#include "ui/page/laid/PageFont.h"
#include "ui/page/laid/PageLine.h"
#include "ui/page/laid/PageSpacing.h"

namespace korvel::ui {
namespace {

using namespace spacing;
using Role = PageFont::Role;

/// Of its letters, where they are too many for the width.
constexpr double kSmallestHead = 0.75;

template <class Placed>
const Placed* under(const std::vector<Placed>& all, const QPointF& point) {
  const auto found =
      std::ranges::find_if(all, [&](const Placed& each) { return each.place.contains(point); });
  return found == all.end() ? nullptr : &*found;
}

double rowHeight(const PageFont& font) { return font.height(Role::chord) * 1.3; }

}  // namespace

PageSheet::PageSheet(const SongPage& page, const QFont& font, double width, Parts parts,
                     const QPaintDevice* device) {
  const PageFont letters(font, device);
  m_line = letters.line();
  m_laid.ink = PageInk(font, page.leftHanded);
  addHead(page, letters, width);
  if (parts == Parts::grips) {
    GripRows(page, letters, width).addWithOthersTo(m_laid);
  } else {
    GripRows(page, letters, width).addTo(m_laid);
    addSections(page, letters, width, parts);
  }
}

// ---- head

QString PageSheet::factsOf(const SongPage& page) {
  QStringList facts;
  if (!page.soundingKey.empty())
    facts << tr("Key: %1").arg(toText(page.soundingKey)) + (page.isGuessedKey ? "?" : "");
  if (page.capo > 0)
    facts << (page.key.empty()
                  ? tr("Capo: %1").arg(page.capo)
                  : tr("Capo: %1 (shapes of %2)").arg(page.capo).arg(toText(page.key)));
  if (page.halfTones != 0)
    facts << tr("Moved by %1 half tones").arg(QString::asprintf("%+d", page.halfTones));
  if (page.tempo > 0) facts << tr("Tempo: %1").arg(std::lround(page.tempo));
  if (!page.metre.empty()) facts << tr("Metre: %1").arg(toText(page.metre));
  if (page.hasDoubts()) facts << tr("?: another name is as probable");
  return facts.join("   ");
}

void PageSheet::addHead(const SongPage& page, const PageFont& font, double width) {
  m_laid.beginBand();
  const auto add = [&](const QString& words, Role role) {
    if (words.isEmpty()) return;
    const double fits = width / std::max(1.0, font.width(role, words));
    const double scale = std::clamp(fits, kSmallestHead, 1.0);
    for (const QString& line : font.linesOf(words, role, width / scale)) {
      m_laid.ink.addText({0, m_laid.y, width, font.height(role)}, line, role, scale);
      m_laid.y += font.height(role) * scale;
    }
  };
  add(toText(page.title), Role::title);
  add(toText(page.artist), Role::artist);
  add(factsOf(page), Role::faint);
  m_laid.y += kBetweenLines * m_line;
  m_laid.endBand();
}

// ---- sections

void PageSheet::addSections(const SongPage& page, const PageFont& font, double width, Parts parts) {
  const bool showsSounding = std::ranges::any_of(
      page.grips, [](const PageGrip& grip) { return grip.shape != grip.sounding; });
  const int room = parts == Parts::allWithRoomForWords && page.hasWords() ? 1 : 0;
  for (std::size_t i = 0; i < page.sections.size(); ++i) {
    const PageSection& section = page.sections[i];
    const int index = static_cast<int>(i);
    m_laid.y += kBetweenSections * m_line;
    if (!section.showsBars()) {
      addName(section, index, font, width);
      continue;
    }
    const int lines = std::max(section.hasWords() ? section.times : 0, room);
    for (std::size_t from = 0; from < section.bars.size(); from += SongPage::kBarsOfLine) {
      const std::size_t count = std::min(SongPage::kBarsOfLine, section.bars.size() - from);
      m_laid.beginBand();
      if (from == 0) addLetter(section, font);
      PageLine({section, index, from, count}, lines, font, width, showsSounding).addTo(m_laid);
      m_laid.endBand();
    }
  }
}

/// In the place of its bars, which are shown above.
void PageSheet::addName(const PageSection& section, int index, const PageFont& font, double width) {
  const double row = rowHeight(font);
  m_laid.beginBand();
  addLetter(section, font);
  const double left = kLetterColumn * m_line;
  const QString words =
      tr("as above") + (section.times > 1 ? "  " + PageLine::timesOf(section) : "");
  m_laid.ink.addText({left, m_laid.y, width - left, row}, words, Role::faint, 1,
                     Qt::AlignLeft | Qt::AlignVCenter);
  m_laid.letters.push_back({{0, m_laid.y, width, row}, index, 0, {}});
  m_laid.y += row;
  m_laid.endBand();
}

void PageSheet::addLetter(const PageSection& section, const PageFont& font) {
  m_laid.ink.addText({0, m_laid.y, kLetterColumn * m_line, rowHeight(font)}, toText(section.letter),
                     Role::letter, 1, Qt::AlignLeft | Qt::AlignVCenter);
}

// ---- what is where

const PageSheet::Bar* PageSheet::barOf(const PagePlaces::Place& place) const {
  const auto find = [&](const std::vector<Bar>& bars, int bar) {
    const auto found = std::ranges::find_if(
        bars, [&](const Bar& each) { return each.section == place.section && each.bar == bar; });
    return found == bars.end() ? nullptr : &*found;
  };
  const Bar* shown = find(m_laid.bars, place.bar);
  return shown ? shown : find(m_laid.letters, 0);
}

const PageSheet::Chord* PageSheet::chordOf(const PagePlaces::Place& place) const {
  const auto found = std::ranges::find_if(m_laid.chords, [&](const Chord& each) {
    return each.section == place.section && each.bar == place.bar && each.chord == place.chord;
  });
  return found == m_laid.chords.end() ? nullptr : &*found;
}

const PageSheet::Bar* PageSheet::barUnder(const QPointF& point) const {
  return under(m_laid.bars, point);
}

const PageSheet::Chord* PageSheet::chordUnder(const QPointF& point) const {
  return under(m_laid.chords, point);
}

const PageSheet::Grip* PageSheet::gripUnder(const QPointF& point) const {
  return under(m_laid.grips, point);
}

const PageSheet::Chord* PageSheet::nearestByLines(const Chord& chord, int lines) const {
  const Chord* best = nullptr;
  const auto away = [&chord](const Chord& other) {
    return 1000 * std::abs(other.place.top() - chord.place.top()) +
           std::abs(other.place.left() - chord.place.left());
  };
  for (const Chord& other : m_laid.chords)
    if ((other.place.top() - chord.place.top()) * lines > 0 && (!best || away(other) < away(*best)))
      best = &other;
  return best;
}

// ---- painting

void PageSheet::paint(QPainter& painter, const Shades& shades, double top, double bottom) const {
  const auto isSeen = [&](const QRectF& place) {
    return place.bottom() >= top && place.top() <= bottom;
  };
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Chord& chord : m_laid.chords)
    if (chord.isDoubtful && isSeen(chord.place)) painter.fillRect(chord.place, shades.doubt);
  m_laid.ink.paint(painter, shades, top, bottom);
}

}  // namespace korvel::ui
