// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/loop/RunLoop.h"
#include "platform/midi/MusicPlayer.h"
#include "platform/text/UserText.h"

namespace korvel {

class QBSong;

/// Plays a moment once, for who asks what was there: of a recording, or notes by the synthesiser.
/// A further moment takes the place of the one that sounds. Main thread; runs on the main run
/// loop's timer.
class MomentPlayer {
 public:
  /// Makes what a moment is played with: with a guitar, or with a synthesiser that stays silent.
  /// May throw AudioError and SoundFontError.
  using NewPlayer = std::function<std::unique_ptr<platform::MusicPlayer>(bool withGuitar)>;

  /// The shortest that can be told, in seconds.
  static constexpr double kShortest = 0.4;

  explicit MomentPlayer(NewPlayer newPlayer);
  MomentPlayer(const MomentPlayer&) = delete;
  MomentPlayer& operator=(const MomentPlayer&) = delete;
  ~MomentPlayer();

  // Both answer why nothing is heard, in one line; empty where something is.
  /// second: of the recording that the song was heard in; cents: by which it is transposed.
  platform::UserText hear(const QBSong& song, double second, double seconds, double cents = 0);
  /// Notes of MIDI, together.
  platform::UserText strike(const std::vector<int>& notes, double seconds);
  void stop();

 private:
  platform::UserText start(std::unique_ptr<platform::MusicPlayer> player, double seconds);

  NewPlayer m_newPlayer;
  platform::MusicSequence m_sequence;
  platform::MusicTrack* m_track = nullptr;
  std::unique_ptr<platform::MusicPlayer> m_player;
  std::unique_ptr<platform::RunLoop::Timer> m_timer;
};

}  // namespace korvel
