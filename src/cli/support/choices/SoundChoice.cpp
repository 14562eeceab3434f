// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/SoundChoice.h"

#include <algorithm>

#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "playback/GuitarSynthesizer.h"

namespace korvel::cli {

void addSoundOptions(Command& command, SoundOptions& sound) {
  command
      .option("--rate", sound.rate, "Speed, where 1 is that of the recording (default: the song's)")
      .within(0.1, 4);
  command
      .option("--loop", sound.loop,
              "Positions of the chords to play (default: the song's loop, or all)")
      .words(2)
      .shownAs("FROM TO");
  command.option("--soundfont", sound.soundFont, "SoundFont to play with (default: what is found)")
      .shownAs("FILE");
}

std::unique_ptr<platform::Synthesizer> synthesizerFor(const SoundOptions& options) {
  return guitarSynthesizer(options.soundFont);
}

double rateOf(const QBSong& song, const SoundOptions& options) {
  if (options.rate) return *options.rate;
  return song.tempoRate() > 0 ? static_cast<double>(song.tempoRate()) : 1.0;
}

LoopForNow::LoopForNow(QBSong& song, const SoundOptions& options)
    : m_song(song), m_from(song.fromChord()), m_to(song.toChord()) {
  if (options.loop.empty()) return;
  const auto [first, last] = std::ranges::minmax(options.loop);
  QBChord* from = chordAt(song, first);
  QBChord* to = chordAt(song, last);
  song.setFromChord(from);
  song.setToChord(to);
}

LoopForNow::~LoopForNow() {
  m_song.setFromChord(m_from);
  m_song.setToChord(m_to);
}

}  // namespace korvel::cli
