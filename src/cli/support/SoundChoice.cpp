// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/SoundChoice.h"

#include <algorithm>

#include "cli/support/SongChoice.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "playback/GuitarSynthesizer.h"

namespace korvel::cli {

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
