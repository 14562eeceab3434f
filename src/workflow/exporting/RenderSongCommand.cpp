// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/RenderSongCommand.h"

#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/media/WaveFileWriter.h"
#include "platform/midi/Synthesizer.h"
#include "playback/SongRenderer.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

constexpr std::size_t kSamplesOfStep = 32768;

}  // namespace

RenderSongCommand::RenderSongCommand(QBSong* song, RenderedPart part,
                                     const std::filesystem::path& file,
                                     std::unique_ptr<platform::Synthesizer> synthesizer,
                                     SongTime::Tempo tempo)
    : WritingCommand(platform::phrase("Job", "WAV Export"), file.filename().string(), file),
      m_song(song),
      m_part(part),
      m_tempo(tempo),
      m_synthesizer(std::move(synthesizer)) {}

RenderSongCommand::~RenderSongCommand() = default;

void RenderSongCommand::prepare() {
  if (m_song->allChords().empty())
    throw EditRefused(
        platform::phrase("Message", "%1: the song has no chords, so there is nothing to export"),
        m_song->title());
  const double rate = m_song->tempoRate() > 0 ? static_cast<double>(m_song->tempoRate()) : 1.0;
  const auto range = m_part == RenderedPart::loop ? SongRenderer::loopOf(*m_song) : std::nullopt;
  m_renderer = std::make_unique<SongRenderer>(*m_song, range, rate, *m_synthesizer, m_tempo);
  if (m_renderer->isSilent())
    throw EditRefused(
        platform::phrase("Message",
                         "%1: nothing sounds in these chords, so there is nothing to export"),
        m_song->title());
  m_writer = std::make_unique<platform::WaveFileWriter>(place(), platform::Synthesizer::kSampleRate,
                                                        platform::Synthesizer::kChannels);
  m_samples.resize(kSamplesOfStep);
}

bool RenderSongCommand::step() {
  const auto rendered = m_renderer->next(m_samples);
  if (rendered.empty()) return false;
  m_writer->write(rendered);
  m_percent = static_cast<int>(kAll * m_renderer->progress());
  return true;
}

void RenderSongCommand::tearDown() {
  m_writer->finish();
  m_percent = kAll;
  printOut(platform::UserText::verbatim(place().string()));
  release();
}

void RenderSongCommand::release() {
  m_writer.reset();
  m_renderer.reset();
  m_synthesizer.reset();
  m_samples = {};
}

}  // namespace korvel
