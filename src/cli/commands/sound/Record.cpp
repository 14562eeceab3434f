// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Record.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "analysis/HearingSettings.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/Interrupts.h"
#include "cli/support/OutputFile.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/sound/SampleRate.h"
#include "platform/sound/WaveFiles.h"
#include "workflow/hearing/Detection.h"
#include "workflow/takes/LiveRecording.h"
#include "workflow/takes/TakeFiles.h"

namespace korvel::cli {
namespace {

struct RecordOptions {
  std::optional<double> seconds;      ///< Until Ctrl-C when not given.
  std::string device;                 ///< The system's default when empty.
  std::optional<std::string> file;    ///< A WAV file in the place of a device.
  bool fast = false;                  ///< Not at the file's own pace.
  std::optional<std::string> album;   ///< Made when missing; one of its own when not given.
  std::optional<std::string> title;   ///< Date and time when not given.
  std::optional<std::string> wav;     ///< Where the recording is kept as well.
  std::optional<std::string> tuning;  ///< For this recording only.
  const Detection* detection = &preciseDetection();
  HearingSettings settings = settingsOfFrontEnds();
};

using State = LiveRecording::State;

constexpr int kFirstFretOfTwoDigits = 10;

/// As in a chord book, "x02210", with blanks where a fret has two digits.
std::string fretsOf(const QBHold& hold) {
  std::string frets;
  bool wide = false;
  for (int string = 0; string < kStrings; ++string) {
    const QBTone* tone = hold.findToneByString(string);
    wide = wide || (tone && tone->fret() >= kFirstFretOfTwoDigits);
    frets += (tone ? std::to_string(tone->fret()) : "x") + ' ';
  }
  frets.pop_back();
  if (!wide) std::erase(frets, ' ');
  return frets;
}

/// Whoever does not read on shall not end the recording.
void printChord(QBChord& chord) {
  char time[16];
  std::snprintf(time, sizeof time, "%5.1f s  ",
                static_cast<double>(chord.timestamp()) / platform::kSampleRate);
  std::string name = chord.harmony() ? chord.fullHarmonyName() : "";
  name.resize(std::max<std::size_t>(name.size() + 2, 8), ' ');
  try {
    Console::attached().print(time + name + fretsOf(*chord.hold()) + '\n');
  } catch (const CliError&) {
  }
}

/// A file in the place of the devices, when one was chosen.
class ChosenSystem {
 public:
  explicit ChosenSystem(const RecordOptions& options)
      : m_files(options.file.value_or(""), {},
                options.fast ? platform::Pace::fastest : platform::Pace::realTime) {
    if (options.file) platform::AudioSystem::install(&m_files);
    m_installed = options.file.has_value();
  }
  ChosenSystem(const ChosenSystem&) = delete;
  ChosenSystem& operator=(const ChosenSystem&) = delete;
  ~ChosenSystem() {
    if (m_installed) platform::AudioSystem::install(nullptr);
  }

 private:
  platform::WaveFiles m_files;
  bool m_installed = false;
};

std::string sourceOf(const RecordOptions& options) {
  if (options.file) return *options.file;
  return options.device.empty() ? platform::AudioSystem::kSystemDefault : options.device;
}

LiveRecording::Options optionsOf(const RecordOptions& options) {
  LiveRecording::Options live;
  live.device = options.device;
  live.album = options.album;
  live.title = options.title;
  live.detection = options.detection;
  live.settings = options.settings;
  if (options.tuning) live.tuning = &tuningToPlayIn(*options.tuning);
  live.seconds = options.seconds;
  live.keptTake = options.wav.value_or("");
  return live;
}

void tellOfTakesLeftBehind() {
  for (const auto& take : takeFilesLeft())
    Console::attached().error(take.string() +
                              ": was left by a recording that did not end; \"korvel-cli takes\" "
                              "makes a song of it or deletes it");
}

void tellOfState(State state, const RecordOptions& options) {
  Console& console = Console::attached();
  if (state == State::recording)
    console.note("Recording from " + sourceOf(options) + ". Ctrl-C ends it.");
  if (state == State::hearing)
    console.note("Hearing the recording note by note. Ctrl-C leaves it at these chords.");
  if (state == State::over) console.progress(1);
}

void start(LiveRecording& recording) {
  try {
    recording.start();
  } catch (const platform::FileError& error) {
    throw CliError(std::string(error.what()) + OutputFile::kAdvice);
  }
}

void run(LiveRecording& recording) {
  Interrupts interrupts;
  start(recording);
  platform::PlainRunLoop::ofProcess().runUntil([&] {
    if (interrupts.next())
      recording.state() == State::recording ? recording.stop() : recording.cancel();
    return recording.state() == State::over;
  });
}

void tellOfLosses(const LiveRecording& recording) {
  Console& console = Console::attached();
  if (recording.lostSeconds() > 0) {
    char text[128];
    std::snprintf(text, sizeof text,
                  "%.1f s of the sound came faster than they could be heard; silence is in their "
                  "place",
                  recording.lostSeconds());
    console.error(text);
  }
  if (recording.takeProblem())
    console.error(recording.takeProblem()->english() + "; the file ends there, the song does not");
}

std::string withTake(const LiveRecording& recording, const std::string& text) {
  const auto take = recording.takeLeft();
  return take ? text + "; the recording is in " + take->string() : text;
}

/// What became of it; the exit status.
int conclude(const LiveRecording& recording, const RecordOptions& options) {
  Console& console = Console::attached();
  tellOfLosses(recording);
  const bool lost = recording.ending() == LiveRecording::Ending::deviceLost;
  if (lost)
    console.error(sourceOf(options) + ": the device is gone, which ended the recording there");
  if (recording.problem())
    throw CliError(withTake(recording, "not all is stored: " + recording.problem()->english()));
  if (!recording.song())
    throw CliError(withTake(recording, "no tones were heard; nothing was stored"));
  console.note("Stored as " + recording.song()->album()->name() + '/' + recording.song()->title() +
               '.');
  console.printText(recording.song()->tabulature());
  return lost ? EXIT_FAILURE : EXIT_SUCCESS;
}

void requirePossible(const RecordOptions& options) {
  if (options.wav && platform::isThere(*options.wav))
    throw CliError(*options.wav + ": there is a file of that name already; name another");
  if (options.wav) OutputFile(*options.wav, false).check();
  requireInstrumentFor(*options.detection);
}

/// Answers the exit status: a failure when the device was lost, too, though the song is stored
/// then.
int record(const RecordOptions& options) {
  requirePossible(options);
  const ChosenSystem system(options);
  tellOfTakesLeftBehind();
  LiveRecording recording(QBTabMgr::db(), optionsOf(options));
  recording.onChord(printChord);
  recording.onProgress([](double share) { Console::attached().progress(share); });
  recording.onState([&](State state) { tellOfState(state, options); });
  run(recording);
  return conclude(recording, options);
}

}  // namespace

void addRecord(Command& tool) {
  Command& command = tool.command("record", "Record a song and show its chords while playing");
  auto& options = command.own<RecordOptions>();
  command.option("--seconds", options.seconds, "How long (default: until Ctrl-C)")
      .within(0.1, 86400);
  const Option device =
      command.option("--device", options.device, "Input (default: what the system has chosen)");
  Option wave = command.option("--file", options.file, "WAV file that is heard instead");
  wave.shownAs("FILE").excludes(device);
  command.flag("--fast", options.fast, "Hear the file faster than it plays; some may get lost")
      .needs(wave);
  command.option("--album", options.album, "Album for the song (default: one of its own)");
  command.option("--title", options.title, "Title of the song (default: date and time)");
  command.option("--wav", options.wav, "File that the sound is kept in").shownAs("FILE");
  command.option("--tuning", options.tuning, "Tuning of the guitar, such as \"Drop D\"");
  addDetectionFlags(command, options.detection, options.settings);
  command.checkLast([&options] {
    if (options.title == "" || options.album == "" || options.wav == "" || options.file == "")
      throw UsageError("record", "takes names that are not empty");
  });
  command.does([&options] { return record(options); });
}

}  // namespace korvel::cli
