// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/SoundMix.h"

#include <cmath>

#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "workflow/playing/PracticeMemory.h"
#include "workflow/playing/QBPlayerViewController.h"

namespace korvel::ui {
namespace {

constexpr double kWholeMix = 100;

}  // namespace

SoundMix::SoundMix(QBPlayerViewController& player, QObject* parent)
    : QObject(parent), m_player(player) {
  const Preferences preferences;
  m_usual.mix = preferences.soundMix() / kWholeMix;
  m_usual.apart = preferences.soundApart();
  m_player.setSound(m_usual);
}

const PlayedSound& SoundMix::sound() const { return m_player.sound(); }

void SoundMix::set(const PlayedSound& sound) {
  Preferences preferences;
  preferences.setSoundMix(static_cast<int>(std::lround(sound.mix * kWholeMix)));
  preferences.setSoundApart(sound.apart);
  m_usual.mix = sound.mix;
  m_usual.apart = sound.apart;
  apply(sound);
}

void SoundMix::setMix(double mix) {
  PlayedSound wanted = sound();
  wanted.mix = mix;
  set(wanted);
}

double SoundMix::recall(const QBSong* song) {
  const auto practised = song ? practiceOf(*song) : std::nullopt;
  apply(practised ? practised->sound : m_usual);
  return practised ? practised->rate : 1;
}

void SoundMix::remember(QBSong& song, double rate) const {
  rememberPractice(song, {rate, sound()});
}

void SoundMix::apply(const PlayedSound& sound) {
  m_player.setSound(sound);
  emit changed();
}

}  // namespace korvel::ui
