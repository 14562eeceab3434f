// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/DeckTape.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/deck/Crossfade.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {
namespace {

/// The rubber that stretches sound has its limits.
constexpr double kSlowestRate = 0.05;
constexpr double kFastestSoundRate = 8;
constexpr double kNearlyTheSame = 1e-6;
/// Where a sound begins in its middle without anything before it.
constexpr std::size_t kFirstFrames = 64;

}  // namespace

DeckTape::DeckTape(const DecodedSound* sound, const DeckPlan& plan)
    : m_sound(sound),
      m_plan(plan),
      m_head(plan.rounds, plan.from),
      m_held(std::make_unique<DeckBlock>()),
      m_loaded(std::make_unique<DeckBlock>()) {
  if (m_sound)
    for (auto& run : m_runs) run = std::make_unique<SoundRun>(*m_sound);
}

void DeckTape::setRate(double rate) { m_head.setRate(rate); }

void DeckTape::setPitch(double pitch) { m_pitch = pitch; }

void DeckTape::seek(double beat, std::uint32_t number) {
  m_head.seek(beat);
  m_seek = number;
  m_span.reset();
  m_holds = false;
  m_sounds = false;
}

bool DeckTape::next(DeckBlock& block) {
  if (!m_holds && !(m_holds = load(*m_held, nullptr))) return false;
  if (!load(*m_loaded, m_held.get())) return false;
  block = *m_held;
  std::swap(m_held, m_loaded);
  return true;
}

bool DeckTape::load(DeckBlock& block, DeckBlock* before) {
  if (!m_span) m_span = m_head.next(DeckBlock::kMostFrames);
  const auto sounding = soundingIn(*m_span);
  if (!isDecoded(sounding, m_span->frames)) return false;
  block.span = *std::exchange(m_span, std::nullopt);
  block.seek = m_seek;
  if (!goesOn(block.span, sounding)) turnTo(sounding, before);
  render(block);
  if (m_sounds && !before)
    fadeIn(block.samples().first(std::min(block.span.frames, kFirstFrames) * DeckBlock::kChannels));
  return true;
}

std::optional<DeckTape::Sounding> DeckTape::soundingIn(const PlayHead::Span& span) const {
  if (!m_sound || span.beatsPerFrame <= 0) return {};
  if (span.beat < m_plan.from - span.beatsPerFrame / 2 || span.beat >= m_plan.to) return {};
  const double rate = std::clamp(span.beatsPerFrame * kSampleRate, kSlowestRate, kFastestSoundRate);
  const bool isFull = std::abs(rate - 1) < kNearlyTheSame;
  return Sounding{(span.beat + m_plan.secondOfBeat0) * kSampleRate, {isFull ? 1 : rate, m_pitch}};
}

bool DeckTape::isDecoded(const std::optional<Sounding>& sounding, std::size_t frames) const {
  if (!sounding || m_sound->isWhole()) return true;
  return SoundRun::readUntil(sounding->frame, sounding->way, frames) +
             SoundRun::readUntil(0, sounding->way, kFadeFrames) <=
         m_sound->frames();
}

bool DeckTape::goesOn(const PlayHead::Span& span, const std::optional<Sounding>& sounding) const {
  if (sounding.has_value() != m_sounds) return false;
  return !m_sounds || (!span.turned && sounding->way == m_runs[m_run]->way());
}

/// What comes begins early by as much as it takes to go over into it.
void DeckTape::turnTo(const std::optional<Sounding>& sounding, DeckBlock* before) {
  const std::size_t frames = before ? std::min(before->span.frames, kFadeFrames) : 0;
  std::array<float, kFadeFrames * DeckBlock::kChannels> fresh{};
  const auto lead = std::span(fresh).first(frames * DeckBlock::kChannels);
  if (sounding) {
    m_run = 1 - m_run;
    m_runs[m_run]->begin(sounding->frame - static_cast<double>(frames) * sounding->way.rate,
                         sounding->way);
    m_runs[m_run]->take(lead);
  }
  if (before) crossfade(before->samples().last(lead.size()), lead);
  m_sounds = sounding.has_value();
}

void DeckTape::render(DeckBlock& block) {
  if (m_sounds)
    m_runs[m_run]->take(block.samples());
  else
    std::ranges::fill(block.samples(), 0.0F);
}

}  // namespace korvel::platform
