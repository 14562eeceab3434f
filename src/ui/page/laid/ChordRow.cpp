// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/laid/ChordRow.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "ui/desktop/Text.h"
#include "ui/page/laid/PageSpacing.h"

namespace korvel::ui {
namespace {

using namespace spacing;
using Role = PageFont::Role;

// In heights of a line.
constexpr double kPointRadius = 0.07;
constexpr double kPointRoom = 0.35;

}  // namespace

ChordRow::ChordRow(const PageBar& bar, const PageFont& font, bool showsSounding)
    : m_bar(bar), m_font(font), m_showsSounding(showsSounding) {
  if (bar.showsTime)
    m_items.push_back({0, QString("%1/%2").arg(bar.beat).arg(bar.beattype), Role::faint, -1});
  for (int i = 0; i < static_cast<int>(bar.chords.size()); ++i) {
    const PageChord& chord = bar.chords[static_cast<std::size_t>(i)];
    const QString name = chord.name.empty() ? QString("–") : toText(chord.name);
    m_items.push_back({chord.beat, name + (chord.isDoubtful ? "?" : ""),
                       chord.goesOn ? Role::chordGoingOn : Role::chord, i});
  }
  for (Item& item : m_items) {
    item.width = m_font.width(item.role, item.words);
    if (m_showsSounding && item.chord >= 0)
      item.width =
          std::max(item.width,
                   m_font.width(Role::small,
                                toText(bar.chords[static_cast<std::size_t>(item.chord)].sounding)));
  }
}

double ChordRow::neededWidth() const {
  const double line = m_font.line();
  double needed = kPad * line + kRepeatWidth * line;
  for (const Item& item : m_items) needed += item.width + kBetweenChords * line;
  if (m_bar.beattype != 0) needed += m_bar.beats * m_bar.countsOfBeat() * kPointRoom * line;
  return needed;
}

void ChordRow::addTo(LaidPage& laid, const Place& place) const {
  for (const Item& item : placed(place)) addName(laid, item, place);
  addPoints(laid, place);
}

std::vector<ChordRow::Item> ChordRow::placed(const Place& place) const {
  const double between = kBetweenChords * m_font.line() * place.scale;
  auto items = m_items;
  double free = place.from;
  for (Item& item : items) {
    item.width *= place.scale;
    const double share = m_bar.beats > 0 ? item.beat / m_bar.beats : 0;
    item.x = std::max(free, place.from + share * (place.names.right() - place.from));
    free = item.x + item.width + between;
  }
  double limit = place.names.right();
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    item->x = std::max(place.from, std::min(item->x, limit - item->width));
    limit = item->x - between;
  }
  return items;
}

void ChordRow::addName(LaidPage& laid, const Item& item, const Place& place) const {
  const double between = kBetweenChords * m_font.line() * place.scale;
  const QRectF words(item.x, place.names.top(), item.width + between, place.names.height());
  laid.ink.addText(words, item.words, item.role, place.scale, Qt::AlignLeft | Qt::AlignVCenter);
  if (item.chord < 0) return;
  const PageChord& chord = m_bar.chords[static_cast<std::size_t>(item.chord)];
  const double sounding = m_showsSounding ? m_font.height(Role::small) : 0;
  laid.chords.push_back({words.adjusted(0, 0, -between / 2, sounding), place.section, place.bar,
                         item.chord, chord.isDoubtful});
  if (m_showsSounding && !chord.goesOn)
    laid.ink.addText({item.x, place.names.bottom(), item.width + between, sounding},
                     toText(chord.sounding), Role::small, place.scale);
}

/// A point for each count on which a chord goes on.
void ChordRow::addPoints(LaidPage& laid, const Place& place) const {
  if (m_bar.beattype == 0) return;
  const auto names = std::span<const LaidPage::Chord>(laid.chords).last(m_bar.chords.size());
  const double away = kPointRadius * m_font.line() * place.scale;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool isLast = i + 1 == names.size();
    const double end = isLast ? m_bar.beats : m_bar.chords[i + 1].beat;
    const double right = isLast ? place.names.right() : names[i + 1].place.left();
    addPointsUntil(laid, m_bar.chords[i].beat, end,
                   {place.from, place.names.right(), place.names.center().y()},
                   {names[i].place.right() + away, right - 2 * away}, place.scale);
  }
}

/// Where the counts are or, where names take that room, evenly between these.
void ChordRow::addPointsUntil(LaidPage& laid, double beat, double end, const Counts& where,
                              const Room& room, double scale) const {
  const double radius = kPointRadius * m_font.line() * scale;
  const double counts = m_bar.beats * m_bar.countsOfBeat();
  const int first = static_cast<int>(std::floor(beat * m_bar.countsOfBeat())) + 1;
  const int behind = static_cast<int>(std::ceil(end * m_bar.countsOfBeat()));
  const auto countAt = [&](int count) {
    return where.left + count / counts * (where.right - where.left) + 2 * radius;
  };
  if (first >= behind || room.left >= room.right) return;
  const bool isFree = countAt(first) >= room.left && countAt(behind - 1) <= room.right;
  const double step = (room.right - room.left) / (behind - first);
  for (int count = first; count < behind; ++count) {
    const double x = isFree ? countAt(count) : room.left + (count - first + 0.5) * step;
    laid.ink.addPoint({x, where.middle}, radius);
  }
}

}  // namespace korvel::ui
