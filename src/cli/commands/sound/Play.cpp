// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Play.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/Interrupts.h"
#include "cli/support/OutputFile.h"
#include "cli/support/RecordingFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/SoundChoice.h"
#include "model/songs/QBSong.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/sound/WaveFiles.h"
#include "workflow/playing/QBPlayerViewController.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

struct PlayOptions {
  std::string song;
  SoundOptions sound;
  RecordingOptions recording;
  std::string device;               ///< The system's default when empty.
  std::optional<std::string> file;  ///< A WAV file in the place of a device.
  bool force = false;               ///< Replaces that file when it is there already.
  std::optional<double> seconds;    ///< How long at most.

  /// A file is to end some time.
  bool repeatsLoop() const { return !file || seconds; }
};

/// How long Ctrl-C may wait to be seen.
constexpr double kWatchSeconds = 0.05;

/// The player of a console: a slider that stands still, and the position in a line.
class ConsolePlayer final : public PlayerControls {
 public:
  explicit ConsolePlayer(double rate) : m_speed(static_cast<int>(std::lround(rate * kMaximum))) {}
  ~ConsolePlayer() override { Console::attached().endStatus(); }

  void lockMIDI() override {}
  void unlockAll() override {}
  void showLoop(const LoopRange&) override {}
  void showPosition(const std::string& percent) override { Console::attached().status(percent); }
  void showSpeed(const std::string&) override {}
  void showProblem(const platform::UserText& problem) override { m_problem = problem.english(); }
  void showNotice(const platform::UserText& notice) override {
    Console::attached().note(notice.english());
  }
  int speed() const override { return m_speed; }
  int fullSpeed() const override { return kMaximum; }

  const std::string& problem() const { return m_problem; }

 private:
  static constexpr int kMaximum = 10000;

  int m_speed;
  std::string m_problem;
};

/// To the player a file that cannot be written any more is a device that is gone.
std::string named(const std::string& problem, const PlayOptions& options) {
  const std::string device =
      options.device.empty() ? platform::AudioSystem::kSystemDefault : options.device;
  const std::string name = options.file.value_or(device);
  const bool isNamed = problem.find(name) != std::string::npos;
  if (options.file)
    return (isNamed ? problem : name + ": cannot be written any further") + OutputFile::kAdvice;
  return isNamed ? problem : name + ": " + problem;
}

void run(QBPlayerViewController& player, Interrupts& interrupts, std::optional<double> seconds) {
  using Clock = std::chrono::steady_clock;
  const auto watch = platform::RunLoop::main().scheduleRepeating(kWatchSeconds, [] {});
  player.play();
  const auto begin = Clock::now();
  const auto isLate = [&] {
    return seconds && std::chrono::duration<double>(Clock::now() - begin).count() >= *seconds;
  };
  platform::PlainRunLoop::ofProcess().runUntil(
      [&] { return !player.isPlaying() || isLate() || interrupts.next(); });
  player.stop();
}

/// Gives the session its song and its player, and takes them back.
class PlayingSession {
 public:
  PlayingSession(QBSong& song, PlayerView& player) : m_before(QBSession::session().views()) {
    SessionViews views = m_before;
    views.player = &player;
    QBSession::session().attach(views);
    QBSession::session().setActiveSong(&song);
  }
  PlayingSession(const PlayingSession&) = delete;
  PlayingSession& operator=(const PlayingSession&) = delete;
  ~PlayingSession() {
    QBSession::session().attach(m_before);
    QBSession::session().setActiveSong(nullptr);
  }

 private:
  SessionViews m_before;
};

/// The player takes a long file by its size as long as it is not known; the tool can wait.
void proveRecording(const QBSong& song, const PlayOptions& options) {
  if (song.recording() && options.recording.played().hasRecording())
    fileOfRecording(*song.recording());
}

void playOn(platform::AudioSystem& system, QBSong& song, const PlayOptions& options) {
  proveRecording(song, options);
  Interrupts interrupts;  // first, so that a second Ctrl-C does not end what the first one began
  const LoopForNow loop(song, options.sound);
  auto synthesizer = synthesizerFor(options.sound, song);
  ConsolePlayer console(rateOf(song, options.sound));
  QBPlayerViewController player(QBSession::session(), console, [&] {
    return std::make_unique<platform::MusicPlayer>(system, options.device, std::move(synthesizer));
  });
  player.setStrict(options.sound.strict);
  player.setLooping(options.repeatsLoop());
  PlayedSound sound = options.recording.played();
  sound.recordedPitch = options.sound.recordedPitch;
  player.setSound(sound);
  const PlayingSession session(song, player);
  run(player, interrupts, options.seconds);
  if (!console.problem().empty()) throw CliError(named(console.problem(), options));
}

void playInto(const OutputFile& file, QBSong& song, const PlayOptions& options) {
  file.check();
  platform::WaveFiles files({}, *options.file);
  playOn(files, song, options);
}

void play(const PlayOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  if (options.file)
    playInto(OutputFile(*options.file, options.force), song, options);
  else
    playOn(platform::AudioSystem::main(), song, options);
}

}  // namespace

void addPlay(Command& tool) {
  Command& command = tool.command("play", "Play a song, or its loop until Ctrl-C");
  auto& options = command.own<PlayOptions>();
  addSong(command, options.song);
  addSoundOptions(command, options.sound);
  addRecordingFlags(command, options.recording);
  addRoundFlags(command, options.recording);
  const Option device =
      command.option("--device", options.device, "Output (default: what the system has chosen)");
  Option wave =
      command.option("--file", options.file, "WAV file that is played into instead, a loop once");
  wave.shownAs("FILE").excludes(device);
  command.flag("--force", options.force, "Replace that file when it is there already").needs(wave);
  command
      .option("--seconds", options.seconds,
              "How long at most (default: to the end, a loop on a device until Ctrl-C)")
      .within(0.1, 86400);
  command.checkLast([&options] {
    if (options.file == "") throw UsageError("--file", "takes a name");
  });
  command.uses(Store::existing);
  command.does([&options] { play(options); });
}

}  // namespace korvel::cli
