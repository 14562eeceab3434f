// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/songs/SongTime.h"
#include "platform/persistence/Ref.h"
#include "workflow/exporting/WritingCommand.h"

namespace korvel {

class QBSong;
class SongRenderer;

namespace platform {
class Synthesizer;
class WaveFileWriter;
}  // namespace platform

/// What of a song is rendered: all of it, or its loop once.
enum class RenderedPart { song, loop };

/// Plays a song or its loop into a WAV file, a part of a second at each step. The file appears when
/// it is complete. Follows the chords that the song has when it begins.
class RenderSongCommand final : public WritingCommand {
 public:
  /// loop: the whole song when it has none. The tempo is that of a song on beats.
  RenderSongCommand(QBSong* song, RenderedPart part, const std::filesystem::path& file,
                    std::unique_ptr<platform::Synthesizer> synthesizer,
                    SongTime::Tempo tempo = SongTime::Tempo::asRecorded);
  ~RenderSongCommand() override;

  /// Throws platform::FileError, and EditRefused where there is nothing to hear.
  void prepare() override;
  void tearDown() override;
  /// Keeps a file of the song as far as it was rendered.
  void stopAndKeep() override { stop(); }

 private:
  bool step() override;
  void release() override;

  platform::Ref<QBSong> m_song;
  RenderedPart m_part;
  SongTime::Tempo m_tempo;
  std::unique_ptr<platform::Synthesizer> m_synthesizer;
  std::unique_ptr<SongRenderer> m_renderer;
  std::unique_ptr<platform::WaveFileWriter> m_writer;
  std::vector<std::int16_t> m_samples;
};

}  // namespace korvel
