// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/laid/PageLine.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "ui/desktop/Text.h"
#include "ui/page/laid/PageSpacing.h"

namespace korvel::ui {
namespace {

using namespace spacing;
using Role = PageFont::Role;

}  // namespace

QString PageLine::timesOf(const PageSection& section) {
  return section.times > 1 ? QString("%1×").arg(section.times) : QString();
}

PageLine::PageLine(const Bars& bars, int lines, const PageFont& font, double width,
                   bool showsSounding)
    : m_section(bars.section),
      m_font(font),
      m_bars(std::span(m_section.bars).subspan(bars.first, bars.count)),
      m_index(bars.index),
      m_first(bars.first),
      m_lines(lines),
      m_opens(m_section.times > 1 && bars.first == 0),
      m_closes(m_section.times > 1 && bars.first + bars.count == m_section.bars.size()),
      m_pageWidth(width),
      m_sounding(showsSounding ? font.height(Role::small) : 0) {
  for (const PageBar& bar : m_bars) m_rows.emplace_back(bar, font, showsSounding);
  fitWidths();
}

// ---- sizes

double PageLine::namesHeight() const { return m_font.height(Role::chord) * 1.3; }

double PageLine::barLineHeight() const { return namesHeight() + m_sounding; }

double PageLine::wordsHeight() const { return m_lines * m_font.line() * 1.1; }

/// Bars are equally wide as far as what stands in them allows that. A line of fewer has narrower
/// room.
void PageLine::fitWidths() {
  const double line = m_font.line();
  const double all = m_pageWidth - kLetterColumn * line - kTimesColumn * line;
  const double equal = all / static_cast<double>(SongPage::kBarsOfLine);
  std::vector<double> needed;
  for (std::size_t bar = 0; bar < m_bars.size(); ++bar) needed.push_back(neededBy(bar));
  const double sum = std::accumulate(needed.begin(), needed.end(), 0.0);
  m_scale = std::clamp(all / std::max(1.0, sum), kSmallestScale, 1.0);
  const double wanted = std::max(sum * m_scale, equal * static_cast<double>(needed.size()));
  const double width = std::min(all, wanted);
  // What bars do not need is shared by those that are narrower than others.
  double level = width / static_cast<double>(needed.size());
  for (int round = 0; round < 4; ++round) {
    double wide = 0;
    int narrow = 0;
    for (const double each : needed) {
      if (each * m_scale > level)
        wide += each * m_scale;
      else
        ++narrow;
    }
    if (narrow > 0) level = (width - wide) / narrow;
  }
  for (const double each : needed) m_widths.push_back(std::max(level, each * m_scale));
}

double PageLine::neededBy(std::size_t bar) const {
  double most = m_rows[bar].neededWidth();
  for (int time = 0; time < m_lines; ++time) {
    const QString words = toText(m_bars[bar].wordText(static_cast<std::size_t>(time)));
    most = std::max(most, m_font.width(Role::plain, words) + 2 * kPad * m_font.line());
  }
  return most;
}

// ---- laying it out

void PageLine::addTo(LaidPage& laid) const {
  double x = kLetterColumn * m_font.line();
  if (m_opens) addRepeat(laid, x, true);
  for (std::size_t i = 0; i < m_bars.size(); ++i) {
    addBarLine(laid, x, isBehindRepeat(i));
    addBar(laid, i, {x, laid.y, m_widths[i], barLineHeight() + wordsHeight()});
    x += m_widths[i];
  }
  addBarLine(laid, x, m_closes);
  if (m_closes) {
    addRepeat(laid, x, false);
    addTimes(laid, x);
  }
  laid.y += barLineHeight() + wordsHeight() + kBetweenLines * m_font.line();
}

void PageLine::addBar(LaidPage& laid, std::size_t index, const QRectF& place) const {
  const QRectF names(place.left(), place.top(), place.width(), namesHeight());
  const double from =
      names.left() + (kPad + (isBehindRepeat(index) ? kRepeatWidth : 0)) * m_font.line();
  const int bar = static_cast<int>(m_first + index);
  m_rows[index].addTo(laid, {names, from, m_scale, m_index, bar});
  LaidPage::Bar placed{place, m_index, bar, {}};
  addWords(laid, index, placed);
  laid.bars.push_back(std::move(placed));
}

void PageLine::addWords(LaidPage& laid, std::size_t index, LaidPage::Bar& placed) const {
  const PageBar& bar = m_bars[index];
  const double height = m_font.line() * 1.1;
  double y = placed.place.bottom() - m_lines * height;
  for (int time = 0; time < m_lines; ++time, y += height) {
    const QRectF place(placed.place.left(), y, placed.place.width(), height);
    placed.words.push_back(place);
    const auto at = static_cast<std::size_t>(time);
    if (at >= bar.words.size()) continue;
    double free = place.left() + kPad * m_font.line();
    // Below the chord, which stands behind a sign of repetition, if there is room.
    const double from = free + (isBehindRepeat(index) ? kRepeatWidth * m_font.line() : 0);
    for (const PageWords& each : bar.words[at]) {
      const QString words = toText(each.text);
      const double width = m_font.width(Role::plain, words) * m_scale;
      const double share = bar.beats > 0 ? each.beat / bar.beats : 0;
      const double wanted = from + share * place.width();
      const double x = std::max(free, std::min(wanted, place.right() - width));
      laid.ink.addText({x, y, width + m_font.line(), height}, words, Role::plain, m_scale);
      free = x + width + m_font.width(Role::plain, " ") * m_scale;
    }
  }
}

// ---- bar lines

void PageLine::addBarLine(LaidPage& laid, double x, bool isHeavy) const {
  const double pen = std::max(1.0, m_font.line() / (isHeavy ? 6 : 16));
  laid.ink.addBox({x - pen / 2, laid.y, pen, barLineHeight()});
}

void PageLine::addRepeat(LaidPage& laid, double x, bool opens) const {
  const double radius = m_font.line() * 0.1;
  const double away = (opens ? 1 : -1) * m_font.line() * 0.3;
  for (const double share : {0.35, 0.65})
    laid.ink.addPoint({x + away, laid.y + barLineHeight() * share}, radius);
}

void PageLine::addTimes(LaidPage& laid, double x) const {
  laid.ink.addText({x + kPad * m_font.line(), laid.y, kTimesColumn * m_font.line(), namesHeight()},
                   timesOf(m_section), Role::plain, 1, Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace korvel::ui
