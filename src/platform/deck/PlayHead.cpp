// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/PlayHead.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/sound/SampleRate.h"

namespace korvel::platform {
namespace {

constexpr double kFastestRate = 1000;

}  // namespace

PlayHead::PlayHead(const std::optional<Rounds>& rounds, double edge)
    : m_rounds(rounds), m_edge(edge) {
  anchorAt(0);
}

void PlayHead::setRate(double rate) {
  m_rate = std::clamp(rate, 0.0, kFastestRate);
  anchorAt(position());
}

void PlayHead::seek(double beat) {
  m_round = 0;
  m_turned = false;
  anchorAt(beat);
}

double PlayHead::rate() const {
  if (!m_rounds || !m_rounds->ramp) return m_rate;
  const SpeedRamp& ramp = *m_rounds->ramp;
  const int steps = m_round / std::max(ramp.rounds, 1);
  return m_rate * std::clamp(ramp.from + steps * ramp.step, 0.0, 1.0);
}

PlayHead::Span PlayHead::next(std::size_t most) {
  turn();
  const double count = static_cast<double>(most);
  double frames = count;
  if (m_rounds) {
    const double rest = framesTo(m_rounds->end);
    if (rest >= 1 && rest < 2 * count) frames = rest <= count ? rest : std::floor(rest / 2);
  }
  const double toEdge = framesTo(m_edge);
  if (toEdge >= 1) frames = std::min(frames, toEdge);
  const Span span{position(), m_beatsPerFrame, static_cast<std::size_t>(frames), m_turned};
  m_frame += static_cast<std::int64_t>(span.frames);
  m_turned = false;
  return span;
}

void PlayHead::turn() {
  if (!m_rounds || m_beatsPerFrame <= 0 || framesTo(m_rounds->end) >= 1) return;
  ++m_round;
  m_turned = true;
  anchorAt(m_rounds->again);
}

void PlayHead::anchorAt(double beat) {
  m_anchor = beat;
  m_frame = 0;
  m_beatsPerFrame = rate() / kSampleRate;
}

/// Infinite when it is never reached.
double PlayHead::framesTo(double beat) const {
  if (m_beatsPerFrame <= 0) return std::numeric_limits<double>::infinity();
  return std::round((beat - m_anchor) / m_beatsPerFrame) - static_cast<double>(m_frame);
}

}  // namespace korvel::platform
