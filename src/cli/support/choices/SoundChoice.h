// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/songs/SongTime.h"
#include "platform/midi/Synthesizer.h"
#include "platform/persistence/Ref.h"

namespace korvel {
class QBChord;
class QBSong;
}  // namespace korvel

namespace korvel::cli {

class Command;

/// How a song shall sound.
struct SoundOptions {
  std::optional<double> rate;            ///< The song's own when not given.
  std::optional<double> bpm;             ///< Beats a minute, in the place of a rate.
  bool strict = false;                   ///< A song on beats is not played as it was recorded.
  bool recordedPitch = false;            ///< A is that of its recording.
  std::vector<int> loop;                 ///< Two positions for the song's own loop, or none.
  std::optional<std::string> soundFont;  ///< What is found when not given.
};

/// Offers --rate, --bpm, --strict, --recorded-pitch, --loop and --soundfont.
void addSoundOptions(Command& command, SoundOptions& sound);

/// For that song. Throws SoundFontError.
std::unique_ptr<platform::Synthesizer> synthesizerFor(const SoundOptions& options,
                                                      const QBSong& song);

/// Throws CliError when beats a minute are asked of a song that is not on beats.
double rateOf(QBSong& song, const SoundOptions& options);
SongTime::Tempo tempoOf(const SoundOptions& options);

/// Gives a song the loop of the options, if there is one, until the end of the scope; not stored.
class LoopForNow {
 public:
  /// Throws CliError when there are no such chords.
  LoopForNow(QBSong& song, const SoundOptions& options);
  LoopForNow(const LoopForNow&) = delete;
  LoopForNow& operator=(const LoopForNow&) = delete;
  ~LoopForNow();

 private:
  QBSong& m_song;
  platform::Ref<QBChord> m_from, m_to;
};

}  // namespace korvel::cli
