// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "audio/KeptSound.h"
#include "platform/text/UserText.h"

namespace korvel::platform {
class GrowingWaveFile;
}

namespace korvel {

class QBSampleBlock;

/// The sound of a live recording, kept while it is recorded: in memory as one channel, to be heard
/// as a whole afterwards, and in a file as it came, which is there when the program dies. Where
/// blocks were lost there is silence, so that it keeps time.
class LiveTake {
 public:
  /// Makes the file, and the folder that it is in. Throws FileError.
  explicit LiveTake(std::filesystem::path file);
  LiveTake(const LiveTake&) = delete;
  LiveTake& operator=(const LiveTake&) = delete;
  /// The file stays.
  ~LiveTake();

  /// The next block, of two channels. A file that cannot be written any more ends there; the sound
  /// goes on in memory.
  void add(const QBSampleBlock& block);
  void removeFile();

  const std::filesystem::path& file() const { return m_file; }
  /// Why the file ends before the sound does.
  const std::optional<platform::UserText>& problem() const { return m_problem; }
  const std::shared_ptr<KeptSound>& sound() const { return m_sound; }
  /// How long it has become.
  double seconds() const;
  /// How much of it is silence in the place of lost blocks.
  double lostSeconds() const;
  /// The loudest sample of the last block, 0..1.
  float level() const { return m_level; }

  /// A name for a take in the folder that no file has.
  static std::filesystem::path freeFile(const std::filesystem::path& folder,
                                        const std::string& name);
  /// Takes that nobody records any more and nobody removed, oldest name first. Those without sound
  /// are removed here.
  static std::vector<std::filesystem::path> leftIn(const std::filesystem::path& folder);
  /// How long the sound in such a file is; 0 for one that is gone.
  static double secondsOf(const std::filesystem::path& file);

 private:
  void addFrames(std::span<const std::int16_t> samples);
  void addSilence(std::int64_t frames);

  std::filesystem::path m_file;
  std::unique_ptr<platform::GrowingWaveFile> m_out;
  std::optional<platform::UserText> m_problem;
  std::shared_ptr<KeptSound> m_sound;
  std::vector<std::int16_t> m_mono;
  std::int64_t m_frames = 0;
  std::int64_t m_lostFrames = 0;
  float m_level = 0;
};

}  // namespace korvel
