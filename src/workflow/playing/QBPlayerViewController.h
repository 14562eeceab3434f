// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/loop/RunLoop.h"
#include "platform/midi/MusicPlayer.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "playback/QBMIDIPlayer.h"
#include "tab/layout/LoopRange.h"
#include "workflow/playing/PlayedSound.h"
#include "workflow/session/SessionViews.h"

namespace korvel {

class QBSession;
class QBSong;

/// The controls of a player, as a window or a console shows them.
class PlayerControls {
 public:
  virtual ~PlayerControls() = default;
  /// Playing begins: what is played, and on what, is fixed until it is stopped.
  virtual void lockMIDI() = 0;
  virtual void unlockAll() = 0;
  virtual void showLoop(const LoopRange& loop) = 0;
  /// Three characters, per cent.
  virtual void showPosition(const std::string& percent) = 0;
  virtual void showSpeed(const std::string& percent) = 0;
  /// Beats a minute at full speed of what plays, or else of the session's song; 0 where it is not
  /// on beats.
  virtual void showTempo(double) {}
  /// Playing did not begin, or ended by itself: one line with what to do.
  virtual void showProblem(const platform::UserText& problem) = 0;
  /// What is wrong with the recording that was to be heard; the guitar plays on alone.
  virtual void showNotice(const platform::UserText&) {}
  /// Where the slider stands, and where it stands for the speed of the recording.
  virtual int speed() const = 0;
  virtual int fullSpeed() const = 0;
  /// The share that this comes to; another where the slider stands beside the exact speed.
  virtual float rate() const {
    return static_cast<float>(speed()) / static_cast<float>(fullSpeed());
  }
};

/// Plays the session's song: its loop, again and again, or all of it, and ends by itself when that
/// has been heard. The recording that it was heard in plays along if that is wanted and it is to be
/// had. The last chord of a song of steps has no position. Another song may become the
/// session's meanwhile; the place is told while it is the one that plays. Playing ends when its
/// song is deleted, or gets another loop or other chords. Main thread; runs on the main run loop's
/// timer.
class QBPlayerViewController final : public PlayerView {
 public:
  /// Makes what a song is played with; may throw AudioError and SoundFontError.
  using NewPlayer = std::function<std::unique_ptr<platform::MusicPlayer>()>;

  /// Of the session's song. Session and controls must outlive this.
  QBPlayerViewController(QBSession& session, PlayerControls& controls, NewPlayer newPlayer);
  QBPlayerViewController(const QBPlayerViewController&) = delete;
  QBPlayerViewController& operator=(const QBPlayerViewController&) = delete;
  ~QBPlayerViewController() override;

  /// Nothing when there is no song or one plays already.
  void play();
  /// Nothing when none plays.
  void stop();
  bool isPlaying() const { return m_midi != nullptr; }
  /// The song that plays, or none.
  QBSong* song() const { return m_song; }
  bool plays(const QBSong* song) const override { return m_midi && song && song == m_song; }
  /// All of what plays has been heard.
  bool isOver() const { return m_midi && m_midi->isOver(); }

  /// Tells the place as soon as another chord is heard, for who calls this often: the place is told
  /// once a step otherwise, which may be nearly a step late.
  void followSound();
  /// Where in the song the chord begins that was told last, and how long the song is: in seconds of
  /// the recording, or of strict tempo. 0 when none plays.
  double secondsHeard() const;
  double secondsOfSong() const;
  /// The second of the recording that is heard at this moment; none when none plays, and in strict
  /// tempo.
  std::optional<double> recordedSeconds() const;

  /// Whether clicks on the beats are heard beside the song; at any time.
  void setMetronome(bool on);
  /// How loud they are, 1 as they come; at any time.
  void setClickVolume(double factor);
  /// Whether a bar of clicks, or four, comes before what is played; for the next playing.
  void setCountIn(bool on) { m_countIn = on; }
  /// Whether a song on beats is played in strict tempo, not as its recording went; for the next
  /// playing.
  void setStrict(bool on) { m_strict = on; }
  /// Whether a loop is played again and again, or once; for the next playing.
  void setLooping(bool on) { m_looping = on; }
  /// What is heard. The mix, the pitch and what is silent change at once, the rest with the next
  /// playing.
  void setSound(const PlayedSound& sound);
  const PlayedSound& sound() const { return m_sound; }
  /// Goes so many bars on, or back with less than 0; of a song without bars, four steps each.
  void skipBars(int bars);
  /// The slider has moved.
  void speedChanged();
  void updateLoop() override;

 private:
  /// Positions of the first and the last chord that are played.
  struct Range {
    int from = 0, to = 0;
    bool operator==(const Range&) const = default;
  };

  static Range rangeOf(QBSong& song);
  void begin(QBSong& song);
  void fill(QBSong& song);
  void addRecording(QBSong& song);
  void start();
  void lookAtRecording();
  void setLevels();
  void replay();
  void playHandler();
  void lookForEnd();
  void showPlace(int index);
  void end(const platform::UserText& problem);

  QBSession& m_session;
  PlayerControls& m_controls;
  NewPlayer m_newPlayer;
  platform::Ref<QBSong> m_song;
  Range m_range;
  bool m_metronome = false;
  bool m_countIn = false;
  bool m_strict = false;
  bool m_looping = true;
  double m_clickVolume = 1;
  PlayedSound m_sound;
  std::shared_ptr<const platform::DecodedSound> m_recording;  ///< Until all of it is decoded.
  bool m_isRecorded = false;                                  ///< It plays along.
  std::optional<double> m_recordedEnd;  ///< In its seconds, where that is before the song's.
  platform::UserText m_notice;          ///< Why it does not play along, or not to the end.
  int m_first = 0;                      ///< Index in the song of the first chord that is played.
  int m_shown = -1;  ///< Index among those played of the chord that was told last.
  std::unique_ptr<QBMIDIPlayer> m_midi;
  bool m_loops = false;
  std::unique_ptr<platform::RunLoop::Timer> m_timer;
  std::unique_ptr<platform::RunLoop::Timer> m_watch;
};

}  // namespace korvel
