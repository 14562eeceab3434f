// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/Moments.h"

#include <algorithm>
#include <memory>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "platform/midi/SilentSynthesizer.h"
#include "playback/MidiNote.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Synthesizers.h"
#include "ui/desktop/Translated.h"
#include "ui/sound/SoundMix.h"
#include "workflow/playing/RecordedMoment.h"

namespace korvel::ui {
namespace {

constexpr double kSecondsOfStrike = 1;
constexpr float kWholeVolume = 100;

std::unique_ptr<platform::MusicPlayer> playerOfMoment(bool withGuitar) {
  const Preferences preferences;
  auto player = std::make_unique<platform::MusicPlayer>(
      platform::AudioSystem::main(), preferences.output().toStdString(),
      withGuitar ? newSynthesizer() : std::make_unique<platform::SilentSynthesizer>());
  player->setVolume(static_cast<float>(preferences.volume()) / kWholeVolume);
  return player;
}

}  // namespace

Moments::Moments(const SoundMix& mix, QObject* parent)
    : QObject(parent), m_mix(mix), m_player(playerOfMoment) {}

Moments::~Moments() = default;

void Moments::setSong(QBSong* song) {
  if (song != m_song) m_player.stop();
  m_song = song;
}

void Moments::listenAt(double second, double seconds) {
  if (m_song) tell(m_player.hear(*m_song, second, seconds, m_mix.sound().cents));
}

void Moments::listenTo(int chord) {
  if (!m_song) return;
  if (const auto moment = momentOf(*m_song, chord))
    return listenAt(moment->second, moment->seconds);
  strikeChord(chord);
}

void Moments::strike(int note, double seconds) { tell(m_player.strike({note}, seconds)); }

void Moments::touch(int chord) {
  const auto moment = m_song ? momentOf(*m_song, chord) : std::nullopt;
  if (!moment) return;
  const double cents = m_mix.sound().cents;
  if (!m_player.hear(*m_song, moment->second, moment->seconds, cents).empty()) emit unheard();
}

const QBHold* Moments::holdOf(int chord) const {
  if (!m_song || chord < 0 || chord >= static_cast<int>(m_song->allChords().size())) return nullptr;
  return m_song->allChords()[static_cast<std::size_t>(chord)]->hold();
}

void Moments::strikeTone(int chord, int string) {
  const QBHold* hold = holdOf(chord);
  const QBTone* tone = hold ? hold->findToneByString(string) : nullptr;
  tone ? strike(toMIDI(*tone), kSecondsOfStrike) : strikeChord(chord);
}

void Moments::strikeChord(int chord) {
  std::vector<int> notes;
  if (const QBHold* hold = holdOf(chord))
    for (const QBTone* tone : hold->tones())
      if (tone->isActive()) notes.push_back(toMIDI(*tone));
  if (!notes.empty()) tell(m_player.strike(notes, kSecondsOfStrike));
}

void Moments::tell(const platform::UserText& problem) {
  if (!problem.empty()) emit refused(translated(problem));
}

}  // namespace korvel::ui
