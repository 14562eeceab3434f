// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/SoundChoice.h"

#include <algorithm>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "model/recorded/ConcertA.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "playback/ChordTimes.h"
#include "playback/GuitarSynthesizer.h"

namespace korvel::cli {
namespace {

double rateFor(QBSong& song, double bpm) {
  const double full = beatsPerMinuteOf(song);
  if (full <= 0)
    throw CliError(fullTitle(song) + ": is not on beats, so --rate sets how fast it is played");
  return bpm / full;
}

}  // namespace

void addSoundOptions(Command& command, SoundOptions& sound) {
  Option rate = command.option("--rate", sound.rate,
                               "Speed, where 1 is that of the recording (default: the song's)");
  rate.within(0.1, 4);
  command.option("--bpm", sound.bpm, "Speed of a song on beats, in beats a minute")
      .within(10, 400)
      .excludes(rate);
  command.flag("--strict", sound.strict,
               "Keep strict tempo in a song on beats (default: as its recording went)");
  command.flag("--recorded-pitch", sound.recordedPitch,
               "Tuned as its recording, such as A = 415 Hz (default: A = 440 Hz)");
  command
      .option("--loop", sound.loop,
              "Positions of the chords to play (default: the song's loop, or all)")
      .words(2)
      .shownAs("FROM TO");
  command.option("--soundfont", sound.soundFont, "SoundFont to play with (default: what is found)")
      .shownAs("FILE");
}

std::unique_ptr<platform::Synthesizer> synthesizerFor(const SoundOptions& options,
                                                      const QBSong& song) {
  auto synthesizer = guitarSynthesizer(options.soundFont);
  if (options.recordedPitch) synthesizer->tune(recordedCentsOf(song));
  return synthesizer;
}

double rateOf(QBSong& song, const SoundOptions& options) {
  if (options.rate) return *options.rate;
  if (options.bpm) return rateFor(song, *options.bpm);
  return song.tempoRate() > 0 ? static_cast<double>(song.tempoRate()) : 1.0;
}

SongTime::Tempo tempoOf(const SoundOptions& options) {
  return options.strict ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded;
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
