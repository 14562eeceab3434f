// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/RecordingRenderer.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "platform/sound/SampleRate.h"
#include "playback/ChordTimes.h"
#include "playback/QBMIDIPlayer.h"

namespace korvel {
namespace {

constexpr double kEchoBeats = 0.5;
constexpr std::uint32_t kFirstSeek = 1;

}  // namespace

bool RecordingRenderer::isInStep(QBSong& song) {
  QBMIDIPlayer player(song, nullptr);
  player.scanFull();
  return player.hasRecordedTimes();
}

RecordingRenderer::RecordingRenderer(QBSong& song, const std::optional<SongRenderer::Range>& range,
                                     const Sound& sound, platform::Synthesizer& synthesizer)
    : m_sound(sound),
      m_renderer(synthesizer),
      m_ring(std::make_unique<platform::DeckRing>()),
      m_output(*m_ring, m_renderer, synthesizer) {
  QBMIDIPlayer player(song, nullptr);
  player.changeProgram(QBMIDIPlayer::kProgram);
  range ? player.scan(range->from, range->to) : player.scanFull();
  m_events = player.sequence().events();
  m_begin = player.times().turnOfLoop().value_or(kSecondsOfChord);
  m_end = player.times().endOfLoop();
  platform::DeckPlan plan = player.deckPlan({});
  plan.from = m_begin;
  plan.to = m_end;
  m_lastSecond = plan.secondOfBeat0 + player.times().lastStruck();
  m_tape = std::make_unique<platform::DeckTape>(m_sound.recording.get(), plan);
  m_tape->setRate(m_sound.rate);
  m_tape->setPitch(m_sound.pitch);
  m_tape->seek(m_begin, kFirstSeek);
  m_output.setLevels(m_sound.levels);
  m_renderer.use(m_events);
}

std::span<const std::int16_t> RecordingRenderer::next(std::span<std::int16_t> samples) {
  if (m_frames > 0 && m_renderer.position() > m_end + kEchoBeats) return {};
  const std::size_t frames = samples.size() / platform::DeckBlock::kChannels;
  // A ring has room for some blocks only.
  const auto part = samples.first(std::min(frames, platform::DeckBlock::kMostFrames) *
                                  platform::DeckBlock::kChannels);
  fill(part.size() / platform::DeckBlock::kChannels);
  m_output.render(part, m_timeline, m_frames);
  m_frames += part.size() / platform::DeckBlock::kChannels;
  return part;
}

void RecordingRenderer::fill(std::size_t frames) {
  while (m_ring->framesAhead() < static_cast<std::int64_t>(frames)) {
    platform::DeckBlock& room = *m_ring->room();
    while (!m_tape->next(room)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    m_ring->push(false);
  }
}

double RecordingRenderer::progress() const {
  if (m_end <= m_begin) return 1;
  return std::clamp((m_renderer.position() - m_begin) / (m_end - m_begin), 0.0, 1.0);
}

double RecordingRenderer::secondsMissing() const {
  if (!m_sound.recording->isWhole()) return 0;
  const auto frames = static_cast<double>(m_sound.recording->frames());
  return std::max(0.0, m_lastSecond - frames / platform::kSampleRate);
}

}  // namespace korvel
