// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

class QBSong;
class SongRenderer;

namespace platform {
class Synthesizer;
class WaveFileWriter;
}  // namespace platform

enum class RenderedPart { song, loop };

/// Plays a song or its loop into a WAV file, a part of a second at each step. The file appears when
/// it is complete; one that cannot be written is told in the log. Follows the chords that the song
/// has when it begins.
class RenderSongCommand final : public QBCommand {
 public:
  /// loop: the whole song when it has none.
  RenderSongCommand(QBSong* song, RenderedPart part, std::filesystem::path file,
                    std::unique_ptr<platform::Synthesizer> synthesizer);
  ~RenderSongCommand() override;

  /// Throws platform::FileError, and EditRefused where there is nothing to hear.
  void prepare() override;
  void execute() override;
  void nextStep() override;
  void tearDown() override;
  std::string fullTitle() const override { return m_type + m_name; }
  /// Of the song so far.
  void stopAndKeep() override { stop(); }
  void cancelAndDrop() override;

 private:
  /// False at the end.
  bool step();
  void release();

  platform::Ref<QBSong> m_song;
  RenderedPart m_part;
  std::filesystem::path m_file;
  std::unique_ptr<platform::Synthesizer> m_synthesizer;
  std::unique_ptr<SongRenderer> m_renderer;
  std::unique_ptr<platform::WaveFileWriter> m_writer;
  std::vector<std::int16_t> m_samples;
};

}  // namespace korvel
