// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/DeckOutput.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/deck/Crossfade.h"

namespace korvel::platform {
namespace {

constexpr float kFullSample = 32767;
constexpr std::uint8_t kControlOfGuitar = 0xB0;
constexpr std::uint8_t kVolumeControl = 7;
constexpr float kUsualVolume = 100;  // of General MIDI
/// In how many samples a level changes by all of it.
constexpr float kLevelStep = 1.0F / 1024;

std::int16_t saturated(float value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::lrint(std::clamp<float>(value, Limits::min(), Limits::max())));
}

}  // namespace

DeckOutput::DeckOutput(DeckRing& ring, SequenceRenderer& renderer, Synthesizer& synthesizer)
    : m_ring(ring), m_renderer(renderer), m_synthesizer(synthesizer) {}

void DeckOutput::setLevels(const DeckLevels& levels) {
  m_recording = levels.recording;
  m_guitar = levels.guitar;
  m_apart = levels.apart;
}

void DeckOutput::render(std::span<std::int16_t> samples, PlayTimeline& timeline,
                        std::uint64_t firstFrame) {
  applyLevels();
  if (m_ring.hasFresh()) leaveStale();
  while (!samples.empty()) {
    const std::size_t wanted = samples.size() / DeckBlock::kChannels;
    const DeckRing::Piece piece = m_ring.front(wanted);
    if (piece.span.frames > 0) follow(piece);
    const std::size_t frames = piece.span.frames > 0 ? piece.span.frames : wanted;
    if (piece.span.frames == 0) m_renderer.setRate(0);
    timeline.note(firstFrame, {m_renderer.position(), m_seek}, m_renderer.beatsPerFrame());
    const auto part = samples.first(frames * DeckBlock::kChannels);
    m_renderer.render(part);
    mix(part, piece.samples);
    if (piece.span.frames > 0) m_ring.release(frames);
    samples = samples.subspan(part.size());
    firstFrame += frames;
  }
}

/// The guitar is told by its own channel's volume, whose loudness goes by the square of the number.
void DeckOutput::applyLevels() {
  m_isApart = m_apart;
  const float volume =
      std::round(kUsualVolume * std::sqrt(std::clamp(m_guitar.load(), 0.0F, 1.0F)));
  if (volume == m_volume) return;
  m_volume = volume;
  m_synthesizer.channelMessage(
      {kControlOfGuitar, kVolumeControl, static_cast<std::uint8_t>(volume)});
}

/// What was to be heard next fades out instead.
void DeckOutput::leaveStale() {
  const DeckRing::Piece piece = m_ring.front(kTailFrames);
  m_tail.fill(0);
  std::ranges::copy(piece.samples, m_tail.begin());
  fadeOut(std::span(m_tail).first(piece.samples.size()));
  m_tailUsed = 0;
  m_ring.skipToFresh();
}

void DeckOutput::follow(const DeckRing::Piece& piece) {
  if (piece.seek != m_seek)
    m_renderer.seek(piece.span.beat);
  else if (piece.span.turned)
    m_renderer.goOnAt(piece.span.beat);
  m_seek = piece.seek;
  m_renderer.setRate(piece.span.beatsPerFrame * kSampleRate);
}

void DeckOutput::mix(std::span<std::int16_t> samples, std::span<const float> recording) {
  const float goal = m_recording;
  for (std::size_t i = 0; i + 1 < samples.size(); i += DeckBlock::kChannels) {
    m_level += std::clamp(goal - m_level, -kLevelStep, kLevelStep);
    float left = 0, right = 0;
    if (i < recording.size()) {
      left = recording[i];
      right = recording[i + 1];
    }
    if (m_tailUsed < m_tail.size()) {
      left += m_tail[m_tailUsed];
      right += m_tail[m_tailUsed + 1];
      m_tailUsed += DeckBlock::kChannels;
    }
    left *= m_level * kFullSample;
    right *= m_level * kFullSample;
    const float guitarLeft = samples[i], guitarRight = samples[i + 1];
    samples[i] = saturated(m_isApart ? (left + right) / 2 : left + guitarLeft);
    samples[i + 1] = saturated(m_isApart ? (guitarLeft + guitarRight) / 2 : right + guitarRight);
  }
}

}  // namespace korvel::platform
