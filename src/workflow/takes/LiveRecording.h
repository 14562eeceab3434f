// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "analysis/HearingSettings.h"
#include "platform/loop/RunLoop.h"
#include "platform/loop/Slices.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "workflow/hearing/Detection.h"

namespace korvel {

namespace platform {
class UndoGroup;
}
class Hearing;
class MicrophoneTake;
class NewSong;
class QBChord;
class QBSong;
class QBTabMgr;
class QBTuning;
struct HearingTask;
class SongInWork;
class TakeHearing;

/// Records a guitar into a new song. Chords appear while it is played, as the detection hears live
/// sound; at the end they are stored. Then, when it hears takes in another way than that, it hears
/// the whole take, and the chords of that take the place of the first ones.
///
/// The take is in a file from the first block on, and stays there when the program dies or nothing
/// could be stored. Everything happens on the main thread, in steps of timers of the run loop. The
/// object must not be destroyed by what it calls.
class LiveRecording {
 public:
  struct Options {
    std::string device{};                ///< None is the system's default.
    std::optional<std::string> album{};  ///< Made when missing; one of its own when not given.
    std::optional<std::string> title{};  ///< Date and time when not given.
    platform::Ref<QBTuning> tuning{};    ///< The active one when there is none.
    const Detection* detection = &preciseDetection();
    HearingSettings settings{};
    std::optional<double> seconds{};  ///< After which it stops by itself.
    std::filesystem::path
        keptTake{};  ///< Where the take is to stay; removed in the end when empty.
  };
  enum class State : std::uint8_t { ready, recording, hearing, over };
  /// What ended the playing.
  enum class Ending : std::uint8_t { asked, deviceEnded, deviceLost };

  LiveRecording(QBTabMgr& db, Options options);
  LiveRecording(const LiveRecording&) = delete;
  LiveRecording& operator=(const LiveRecording&) = delete;
  /// What is not stored by now is dropped, but for the file of the take.
  ~LiveRecording();

  /// Throws AudioError and FileError, and then nothing is left of it. Once only.
  void start();
  /// The playing is over; what was recorded is stored and heard. Otherwise without effect.
  void stop();
  /// While the whole take is heard: leaves it at the chords that were heard live.
  void cancel();

  /// Ends at once, for a program that is to end: hears what waits, and stores the song as it was
  /// heard live. When another detection was to hear the take, it stays, and the song is marked as
  /// not whole.
  void endNow();

  State state() const { return m_state; }
  /// How much was recorded, in seconds.
  double elapsed() const;
  /// The loudest sample of the last block, 0..1.
  float level() const;
  Ending ending() const { return m_ending; }
  /// Blocks that came while as many as may wait did so.
  std::int64_t droppedBlocks() const;
  /// How much of what was played came faster than it could be heard, in seconds; the take has
  /// silence there.
  double lostSeconds() const;

  /// Once it is over: the stored song, none when nothing was heard or nothing could be stored.
  QBSong* song() const { return m_song; }
  /// The song's chords are those that were heard in the whole take.
  bool isHeardWhole() const;
  /// What went wrong after the start, if anything did, such as that the song was deleted by
  /// somebody else; a song may not be saved then.
  const std::optional<platform::UserText>& problem() const { return m_problem; }
  /// Why the file of the take could not be written to its end.
  const std::optional<platform::UserText>& takeProblem() const;
  /// The file of the take, when it is there to stay.
  std::optional<std::filesystem::path> takeLeft() const;

  /// Called with each chord that is heard live and has tones.
  void onChord(std::function<void(QBChord&)> listener) { m_listeners.chord = std::move(listener); }
  /// Called with the share of the whole take that was heard, 0..1.
  void onProgress(std::function<void(double)> listener) {
    m_listeners.progress = std::move(listener);
  }
  void onState(std::function<void(State)> listener) { m_listeners.state = std::move(listener); }

 private:
  struct Listeners {
    std::function<void(QBChord&)> chord;
    std::function<void(double)> progress;
    std::function<void(State)> state;
  };

  void make();
  HearingTask taskFor(QBSong* song) const;
  void every(double seconds, void (LiveRecording::*step)());
  void hearLive();
  QBChord* nextLiveChord();
  void tellOf(QBChord* chord);
  bool isPlayingOver();
  void endPlaying();
  void requireSongs() const;
  void storeLive();
  bool hearsTake() const;
  void keepMore();
  void keepSound();
  void markWhole();
  void beginWhole();
  void hearWhole();
  void dropScratch();
  void finishHeard();
  void fail(const std::exception& error);
  void finish();
  void enter(State state);

  QBTabMgr& m_db;
  Options m_options;  ///< From start on with the tuning that is heard in.
  State m_state = State::ready;
  Ending m_ending = Ending::asked;
  std::shared_ptr<platform::UndoGroup> m_undo;  ///< From start to end.
  std::unique_ptr<NewSong> m_made;
  std::unique_ptr<SongInWork> m_mark;  ///< On the song made; it may go in the end.
  std::unique_ptr<MicrophoneTake> m_sound;
  std::unique_ptr<Hearing> m_live;
  std::unique_ptr<TakeHearing> m_second;  ///< When the take is heard once more.
  platform::Slices m_keeping;             ///< The copy of the take.
  std::unique_ptr<platform::RunLoop::Timer> m_timer;

  platform::Ref<QBSong> m_song;
  bool m_isHeard = false;  ///< The take was heard to its end.
  bool m_takeStays = true;
  bool m_isLeft = false;  ///< The program ended before the take was heard.
  std::optional<platform::UserText> m_problem;
  Listeners m_listeners;
};

}  // namespace korvel
