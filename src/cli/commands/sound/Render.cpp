// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Render.h"

#include <cmath>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/Interrupts.h"
#include "cli/support/RecordingFlags.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "platform/media/WaveFileWriter.h"
#include "platform/midi/SilentSynthesizer.h"
#include "playback/RecordingRenderer.h"
#include "playback/SongRenderer.h"

namespace korvel::cli {
namespace {

struct RenderOptions {
  std::string song;
  std::string file;
  SoundOptions sound;
  RecordingOptions recording;
  bool force = false;  ///< Replaces a file that is there already.
};

constexpr std::size_t kSamplesAtOnce = 16384;
constexpr double kCentsOfOctave = 1200;
/// So much later than the end of its recording a song's last chord may begin, in seconds, as
/// decoders differ about the end of a file.
constexpr double kMostMissing = 0.5;

/// Ctrl-C leaves no part of a file behind.
template <class Renderer>
bool write(Renderer& renderer, platform::WaveFileWriter& writer, const std::string& name) {
  Interrupts interrupts;
  std::vector<std::int16_t> samples(kSamplesAtOnce);
  for (auto next = renderer.next(samples); !next.empty(); next = renderer.next(samples)) {
    writer.write(next);
    Console::attached().progress(renderer.progress());
    if (interrupts.next()) throw CliError(name + ": interrupted; nothing was written");
  }
  return writer.finish();
}

/// Writes what a renderer answers.
template <class Renderer>
void writeInto(const OutputFile& file, Renderer& renderer) {
  file.writeBy([&](const std::filesystem::path& name, platform::Existing existing) {
    platform::WaveFileWriter writer(name, platform::Synthesizer::kSampleRate,
                                    platform::Synthesizer::kChannels, existing);
    return write(renderer, writer, name.string());
  });
}

/// Where only the recording is heard no SoundFont is needed.
std::unique_ptr<platform::Synthesizer> guitarFor(const PlayedSound& sound,
                                                 const SoundOptions& options, const QBSong& song) {
  if (sound.levels().guitar > 0) return synthesizerFor(options, song);
  return std::make_unique<platform::SilentSynthesizer>();
}

void renderRecording(QBSong& song, const OutputFile& file, const RenderOptions& options) {
  const LoopForNow loop(song, options.sound);
  const PlayedSound played = options.recording.played();
  const auto synthesizer = guitarFor(played, options.sound, song);
  const auto recording = requireRecording(song);
  RecordingRenderer renderer(song, SongRenderer::loopOf(song),
                             {recording, played.levels(), std::exp2(played.cents / kCentsOfOctave),
                              rateOf(song, options.sound)},
                             *synthesizer);
  writeInto(file, renderer);
  if (const auto problem = recording->problem(); !problem.empty())
    Console::attached().note(problem.english());
  else if (renderer.secondsMissing() > kMostMissing)
    Console::attached().note(fullTitle(song) + ": the recording ends before the song");
}

void render(const RenderOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  const OutputFile file(options.file, options.force);
  file.check();
  if (options.recording.recording)
    renderRecording(song, file, options);
  else
    renderSong(song, file, options.sound);
}

}  // namespace

void renderSong(QBSong& song, const OutputFile& file, const SoundOptions& sound) {
  const LoopForNow loop(song, sound);
  const auto synthesizer = synthesizerFor(sound, song);
  SongRenderer renderer(song, SongRenderer::loopOf(song), rateOf(song, sound), *synthesizer,
                        tempoOf(sound));
  if (renderer.isSilent())
    throw CliError(fullTitle(song) +
                   ": nothing sounds in these chords, so there is nothing to write");
  writeInto(file, renderer);
}

void addRender(Command& tool) {
  Command& command = tool.command("render", "Write what a song sounds like to a WAV file");
  auto& options = command.own<RenderOptions>();
  addSong(command, options.song);
  command.option("FILE", options.file, "WAV file").required().shownAs("");
  addSoundOptions(command, options.sound);
  addRecordingFlags(command, options.recording);
  command.flag("--force", options.force, "Replace a file that is there already");
  command.uses(Store::existing);
  command.does([&options] { render(options); });
}

}  // namespace korvel::cli
