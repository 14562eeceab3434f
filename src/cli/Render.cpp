// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Render.h"

#include <algorithm>

#include "cli/CliError.h"
#include "cli/Console.h"
#include "cli/Interrupts.h"
#include "cli/SongChoice.h"
#include "model/QBChord.h"
#include "model/QBSong.h"
#include "platform/WaveFileWriter.h"
#include "playback/SongRenderer.h"
#include "tab/LoopRange.h"
#include "workflow/TuningForNow.h"

namespace korvel::cli {
namespace {

constexpr std::size_t kSamplesAtOnce = 16384;

/// An end that is not set is that of the song.
std::optional<SongRenderer::Range> rangeOf(QBSong& song) {
  const LoopRange loop(&song);
  if (loop.from == -1 && loop.to == -1) return std::nullopt;
  const auto& chords = song.allChords();
  return SongRenderer::Range{loop.from == -1 ? chords.front()->position() : loop.from,
                             loop.to == -1 ? chords.back()->position() : loop.to};
}

/// Ctrl-C leaves no part of a file behind.
bool write(SongRenderer& renderer, platform::WaveFileWriter& writer, const std::string& name) {
  Interrupts interrupts;
  std::vector<std::int16_t> samples(kSamplesAtOnce);
  for (auto next = renderer.next(samples); !next.empty(); next = renderer.next(samples)) {
    writer.write(next);
    Console::attached().progress(renderer.progress());
    if (interrupts.next()) throw CliError(name + ": interrupted; nothing was written");
  }
  return writer.finish();
}

}  // namespace

void render(const RenderOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  const OutputFile file(options.file, options.force);
  file.check();
  const TuningForNow chosen(song.tuning());
  renderSong(song, file, options.sound);
}

void renderSong(QBSong& song, const OutputFile& file, const SoundOptions& sound) {
  const LoopForNow loop(song, sound);
  const auto synthesizer = synthesizerFor(sound);
  SongRenderer renderer(song, rangeOf(song), rateOf(song, sound), *synthesizer);
  file.writeBy([&](const std::filesystem::path& name, platform::Existing existing) {
    platform::WaveFileWriter writer(name, platform::Synthesizer::kSampleRate,
                                    platform::Synthesizer::kChannels, existing);
    return write(renderer, writer, name.string());
  });
}

}  // namespace korvel::cli
