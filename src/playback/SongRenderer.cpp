// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/SongRenderer.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "playback/QBMIDIPlayer.h"

namespace korvel {
namespace {

constexpr double kLongestEchoSeconds = 10;

}  // namespace

SongRenderer::SongRenderer(QBSong& song, const std::optional<Range>& range, double rate,
                           platform::Synthesizer& synthesizer, SongTime::Tempo tempo)
    : m_renderer(synthesizer),
      m_longestEcho(kLongestEchoSeconds * platform::Synthesizer::kSampleRate) {
  QBMIDIPlayer player(song, nullptr, tempo);
  player.changeProgram(QBMIDIPlayer::kProgram);
  range ? player.scan(range->from, range->to) : player.scanFull();
  m_events = player.sequence().events();
  m_length = player.sequence().length();
  m_renderer.setRate(rate);
  m_renderer.use(m_events);
  m_renderer.seek(kSecondsOfChord);
}

std::optional<SongRenderer::Range> SongRenderer::loopOf(QBSong& song) {
  const QBChord* from = song.fromChord();
  const QBChord* to = song.toChord();
  if (!from && !to) return std::nullopt;
  const auto& chords = song.allChords();
  return Range{from ? from->position() : chords.front()->position(),
               to ? to->position() : chords.back()->position()};
}

std::span<const std::int16_t> SongRenderer::next(std::span<std::int16_t> samples) {
  if (m_longestEcho <= 0) return {};
  const bool echo = m_renderer.isOver();
  m_renderer.render(samples);
  if (!echo) return samples;
  m_longestEcho -= static_cast<double>(samples.size()) / platform::Synthesizer::kChannels;
  const auto lastHeard = std::find_if(samples.rbegin(), samples.rend(), [](auto s) { return s; });
  if (lastHeard == samples.rend()) m_longestEcho = 0;
  return m_longestEcho > 0 ? samples : std::span<std::int16_t>();
}

double SongRenderer::progress() const {
  const double begin = kSecondsOfChord;
  if (m_length <= begin) return 1;
  return std::clamp((m_renderer.position() - begin) / (m_length - begin), 0.0, 1.0);
}

}  // namespace korvel
