// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/TonePainter.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/roll/RollHits.h"
#include "workflow/editing/doubts/SongNotes.h"

namespace korvel::ui {
namespace {

constexpr float kLeastOpacity = 0.45F;  ///< Of a tone that is hardly one.
constexpr float kFaintest = 0.35F;      ///< Of a candidate.
// In pixels.
constexpr double kNarrowest = 3;     ///< Columns that show more than where a tone is.
constexpr double kLowestDashed = 5;  ///< Lanes in which dashes can be told.

}  // namespace

void TonePainter::paint(QPainter& painter, int first, int end,
                        std::span<const ToneIndex> chosen) const {
  if (m_scale.step() < kNarrowest) return paintNarrow(painter, first, end);
  paintCandidates(painter, first, end);
  for (auto tone = m_roll.firstSounding(first); tone != m_roll.endSounding(end); ++tone) {
    if (m_roll.begin(tone->chord) + tone->steps <= m_roll.begin(first)) continue;
    const auto index = static_cast<std::size_t>(tone - m_roll.tones().begin());
    const bool isKnown = index < m_notes.signs.size();
    const bool isChosen =
        std::ranges::find(chosen, ToneIndex{tone->chord, tone->string}) != chosen.end();
    paintTone(painter, *tone, isKnown ? m_notes.signs[index] : RollNotes::Sign(), isChosen);
  }
  painter.setOpacity(1);
}

/// Thousands of tones side by side, of which no more than the place can be told.
void TonePainter::paintNarrow(QPainter& painter, int first, int end) const {
  constexpr int kInks = 32;
  std::array<QColor, kInks> inks;
  for (int ink = 0; ink < kInks; ++ink)
    inks[static_cast<std::size_t>(ink)] =
        mixed(m_shades.quiet, m_shades.mark, static_cast<double>(ink) / (kInks - 1));
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (auto tone = m_roll.firstSounding(first); tone != m_roll.endSounding(end); ++tone) {
    if (!tone->active) continue;
    const QRectF head = m_scale.headOf(*tone);
    const QRect cells(static_cast<int>(head.left()), static_cast<int>(head.top()),
                      std::max(1, static_cast<int>(std::ceil(head.width()))),
                      static_cast<int>(std::ceil(head.height())));
    const auto ink = static_cast<std::size_t>(tone->loudness * (kInks - 1));
    painter.fillRect(cells, inks[std::min<std::size_t>(ink, kInks - 1)]);
  }
  painter.setRenderHint(QPainter::Antialiasing);
}

void TonePainter::paintCandidates(QPainter& painter, int first, int end) const {
  const RollHits hits(m_roll, m_notes, m_scale);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(m_shades.text, 1, Qt::DotLine));
  for (const RollNotes::Candidate& candidate : m_notes.candidates) {
    if (candidate.from > m_roll.begin(end)) break;
    if (candidate.from + candidate.steps < m_roll.begin(first)) continue;
    painter.setOpacity(std::clamp(candidate.probability + kFaintest, kFaintest, 1.0F));
    const QRectF rect = hits.rectOf(candidate).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRect(rect);
    if (candidate.isLocked) paintLock(painter, rect);
  }
  painter.setOpacity(1);
}

void TonePainter::paintTone(QPainter& painter, const ToneRoll::Tone& tone,
                            const RollNotes::Sign& sign, bool isChosen) const {
  QPen outline =
      m_scale.showsOutlines() ? QPen(mixed(m_shades.mark, m_shades.text, 0.5)) : QPen(Qt::NoPen);
  const bool isDoubtful = sign.probability < SongNotes::kDoubtful && !sign.isLocked;
  if (isDoubtful && m_scale.laneHeight() >= kLowestDashed)
    outline = QPen(m_shades.text, 1.2, Qt::DashLine);
  if (isChosen) outline = QPen(m_shades.text, 2);
  painter.setOpacity(kLeastOpacity + (1 - kLeastOpacity) * sign.probability);
  painter.setPen(tone.active ? outline : QPen(m_shades.faintText));
  painter.setBrush(tone.active ? mixed(m_shades.quiet, m_shades.mark, tone.loudness)
                               : m_shades.base);
  if (tone.steps > m_roll.stepsOf(tone.chord) && tone.active)
    painter.drawRect(m_scale.tailOf(tone));
  const QRectF head = m_scale.headOf(tone);
  paintHead(painter, head, tone.active);
  painter.setOpacity(1);
  if (sign.isLocked) paintLock(painter, head);
}

/// In narrow lanes an outline would hide the shade.
void TonePainter::paintHead(QPainter& painter, const QRectF& head, bool active) const {
  const double round = std::min(3.0, m_scale.laneHeight() / 4);
  if (m_scale.showsOutlines())
    painter.drawRoundedRect(head.adjusted(0.5, 0.5, -0.5, -0.5), round, round);
  else if (active)
    painter.drawRoundedRect(head, round, round);
  else  // too narrow for a hollow
    painter.drawLine(QPointF(head.left(), head.center().y()),
                     QPointF(head.center().x(), head.center().y()));
}

/// A corner is folded.
void TonePainter::paintLock(QPainter& painter, const QRectF& head) const {
  const double size = std::min({head.height() * 0.6, head.width() * 0.6, 7.0});
  painter.save();
  painter.setOpacity(1);
  painter.setPen(Qt::NoPen);
  painter.setBrush(m_shades.text);
  painter.drawPolygon(QPolygonF{head.topLeft(), head.topLeft() + QPointF(size, 0),
                                head.topLeft() + QPointF(0, size)});
  painter.restore();
}

}  // namespace korvel::ui
