// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/MomentPlayer.h"

#include <algorithm>
#include <utility>

#include "model/songs/QBSong.h"
#include "music/Pitch.h"
#include "platform/midi/SoundFontFile.h"
#include "platform/sound/SampleRate.h"
#include "playback/QBMIDIPlayer.h"
#include "workflow/recordings/RecordingSound.h"

namespace korvel {
namespace {

constexpr double kTickSeconds = 0.05;
constexpr double kEchoSeconds = 0.3;
constexpr std::uint8_t kVelocityOfMoment = 50;
constexpr std::uint8_t kProgramMessage = 0xC0;

bool isBehind(const platform::DecodedSound& sound, double second) {
  return sound.isWhole() && second * platform::kSampleRate >= static_cast<double>(sound.frames());
}

platform::UserText whyNothing(const QBSong& song, const platform::DecodedSound& sound) {
  const platform::UserText problem = sound.problem();
  if (!problem.empty()) return problem;
  return {platform::phrase("Message", "%1: the recording ends before this place"), song.title()};
}

}  // namespace

MomentPlayer::MomentPlayer(NewPlayer newPlayer) : m_newPlayer(std::move(newPlayer)) {}

MomentPlayer::~MomentPlayer() { stop(); }

platform::UserText MomentPlayer::hear(const QBSong& song, double second, double seconds,
                                      double cents) {
  stop();
  const RecordingSound recording = openRecording(song, Proof::atOnce);
  if (!recording.sound) return recording.problem;
  if (isBehind(*recording.sound, second)) return whyNothing(song, *recording.sound);
  const double length = std::max(seconds, kShortest);
  try {
    auto player = m_newPlayer(false);
    player->setDeck(std::make_unique<platform::Deck>(recording.sound,
                                                     platform::DeckPlan{second, 0, length, {}}));
    player->setPitch(cents);
    return start(std::move(player), length);
  } catch (const platform::AudioError& error) {
    return error.text();
  }
}

platform::UserText MomentPlayer::strike(const std::vector<int>& notes, double seconds) {
  stop();
  try {
    auto player = m_newPlayer(true);
    const double length = std::max(seconds, kShortest);
    m_track = &m_sequence.newTrack();
    m_track->addChannelEvent(
        0, {kProgramMessage, static_cast<std::uint8_t>(QBMIDIPlayer::kProgram), 0});
    for (const int note : notes)
      if (note >= 0 && note <= kHighestNote)
        m_track->addNote(0, {0, static_cast<std::uint8_t>(note), kVelocityOfMoment, 0,
                             static_cast<float>(length)});
    return start(std::move(player), length);
  } catch (const platform::AudioError& error) {
    return error.text();
  } catch (const platform::SoundFontError& error) {
    return error.text();
  }
}

platform::UserText MomentPlayer::start(std::unique_ptr<platform::MusicPlayer> player,
                                       double seconds) {
  m_player = std::move(player);
  m_player->setSequence(m_sequence);
  m_player->start();
  m_timer = platform::RunLoop::main().scheduleRepeating(kTickSeconds, [this, seconds] {
    if (m_player->time() > seconds + kEchoSeconds || !m_player->isPlaying()) stop();
  });
  return {};
}

void MomentPlayer::stop() {
  m_timer = nullptr;
  m_player = nullptr;
  if (m_track) m_sequence.disposeTrack(*std::exchange(m_track, nullptr));
}

}  // namespace korvel
