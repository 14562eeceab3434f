// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <memory>

#include "cli/commands/Apply.h"
#include "cli/commands/Devices.h"
#include "cli/commands/Export.h"
#include "cli/commands/Import.h"
#include "cli/commands/InstrumentCommands.h"
#include "cli/commands/Play.h"
#include "cli/commands/Record.h"
#include "cli/commands/Render.h"
#include "cli/commands/SongChanges.h"
#include "cli/commands/StoreCommands.h"
#include "cli/commands/Transcribe.h"
#include "cli/commands/TuningCommands.h"
#include "cli/support/CliError.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/NumberRange.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/files/Files.h"
#include "workflow/arranging/SongCommands.h"

namespace {

using namespace korvel;

constexpr int kWrongUsage = 2;

using Action = std::function<int()>;

Action always(const std::function<void()>& action) {
  return [action] {
    action();
    return EXIT_SUCCESS;
  };
}

/// The command line: which action, with which words.
struct Usage {
  CLI::App app{"Korvel: guitar recordings to chords and tablature.", "korvel-cli"};
  std::string store, song, file, target;
  int from = 0, to = 0;
  cli::ImportOptions import;
  cli::ApplyOptions apply;
  cli::ExportOptions exported;
  cli::RecordOptions record;
  cli::PlayOptions played;
  cli::RenderOptions rendered;
  cli::TranscribeOptions transcribe;
  cli::NewTuning tuning;
  bool storeMustExist = false;
  bool storeNeeded = true;
  Action action;

  Usage() {
    app.require_subcommand(1);
    app.add_option("--store", store, "Store file (default: Korvel.sqlite in your data folder)")
        ->type_name("FILE");
    app.footer(
        "SONG is a title, or ALBUM/TITLE where titles repeat.\n"
        "Exit status: 0 done, 1 failed, 2 wrong usage, 255 the store cannot be opened.");
    addImport();
    addRecord();
    addTranscribe();
    addSongCommands();
    addExport();
    addPlay();
    addRender();
    addApply();
    addEdits();
    addStoreCommands();
  }

 private:
  CLI::App* command(const char* name, const char* description, const Action& run) {
    CLI::App* sub = app.add_subcommand(name, description);
    sub->callback([this, run] { action = run; });
    return sub;
  }

  /// For commands that need a store with something in it, and should not make an empty one.
  CLI::App* caring(const char* name, const char* description, const Action& run) {
    CLI::App* sub = command(name, description, run);
    sub->parse_complete_callback([this] { storeMustExist = true; });
    return sub;
  }

  void addImport() {
    CLI::App* sub =
        app.add_subcommand("import", "Import recordings, store them and print their tablature");
    sub->callback([this] {
      if (import.title && import.files.size() > 1)
        throw CLI::ValidationError("--title", "goes with a single file");
      if (import.title == "" || import.album == "")
        throw CLI::ValidationError("--title and --album", "take a name");
      action = [this] { return cli::importFiles(import); };
    });
    sub->add_option("FILE", import.files, "Sound files")->required()->type_name("");
    sub->add_option("--album", import.album, "Album for the songs (default: one for each file)");
    sub->add_option("--title", import.title, "Title of the song (default: after the file)");
    sub->add_option("--tuning", import.tuning, "Tuning of the guitar, such as \"Drop D\"");
    cli::addDetectionFlags(*sub, import.detection, import.settings);
    sub->add_flag("--json", import.json, "Print the song as JSON");
    sub->add_flag("--stepped", import.stepped, "Import step by step on a timer");
  }

  void addRecord() {
    CLI::App* sub = app.add_subcommand("record", "Record a song and show its chords while playing");
    sub->callback([this] {
      if (record.title == "" || record.album == "" || record.wav == "" || record.file == "")
        throw CLI::ValidationError("record", "takes names that are not empty");
      action = [this] { return cli::record(record); };
    });
    sub->add_option("--seconds", record.seconds, "How long (default: until Ctrl-C)")
        ->check(cli::numbersWithin(0.1, 86400));
    CLI::Option* device =
        sub->add_option("--device", record.device, "Input (default: what the system has chosen)");
    CLI::Option* wave =
        sub->add_option("--file", record.file, "WAV file that is heard instead")->type_name("FILE");
    wave->excludes(device);
    sub->add_flag("--fast", record.fast, "Hear the file faster than it plays; some may get lost")
        ->needs(wave);
    sub->add_option("--album", record.album, "Album for the song (default: one of its own)");
    sub->add_option("--title", record.title, "Title of the song (default: date and time)");
    sub->add_option("--wav", record.wav, "File that the sound is kept in")->type_name("FILE");
    sub->add_option("--tuning", record.tuning, "Tuning of the guitar, such as \"Drop D\"");
    cli::addDetectionFlags(*sub, record.detection, record.settings);
  }

  void addTranscribe() {
    CLI::App* sub = app.add_subcommand(
        "transcribe", "Print the notes of a recording as JSON, or write them to files");
    sub->callback([this] {
      storeNeeded = transcribe.tuning.has_value();
      action = always([this] { cli::transcribe(transcribe); });
    });
    sub->add_option("FILE", transcribe.file, "Sound file")->required()->type_name("");
    sub->add_option("--json", transcribe.json, "Notes (default: printed when no file is named)")
        ->type_name("FILE");
    sub->add_option("--midi", transcribe.midi, "Notes at their times, for sequencers")
        ->type_name("FILE");
    sub->add_option("--musicxml", transcribe.musicxml, "Notes to the nearest sixteenth, as a score")
        ->type_name("FILE");
    sub->add_option("--tempo", transcribe.tempo, "Quarters a minute (default: what fits the notes)")
        ->check(cli::numbersWithin(20, 400));
    sub->add_flag("--force", transcribe.force, "Replace files that are there already");
    sub->add_option("--tuning", transcribe.tuning,
                    "Tuning of the guitar, such as \"Drop D\" (default: Standard)");
    cli::addDetectionFlags(*sub, transcribe.settings);
  }

  CLI::App* withSong(CLI::App* sub) {
    sub->add_option("SONG", song, "Title, or ALBUM/TITLE")->required()->type_name("");
    return sub;
  }

  void addSongCommands() {
    withSong(
        caring("show", "Print the tablature of a song", always([this] { cli::showSong(song); })));
    withSong(caring("dump", "Print a song as JSON", always([this] { cli::dumpSong(song); })));
    withSong(caring("delete", "Delete a song", always([this] { cli::deleteSong(song); })));
  }

  void addExport() {
    CLI::App* sub = app.add_subcommand("export", "Write a song to files");
    sub->callback([this] {
      if (!exported.txt && !exported.musicxml && !exported.midi && !exported.wav)
        throw CLI::ValidationError("export",
                                   "takes one or more of --txt, --musicxml, --midi and --wav");
      storeMustExist = true;
      action = always([this] { cli::exportSong(exported); });
    });
    sub->add_option("SONG", exported.song, "Title, or ALBUM/TITLE")->required()->type_name("");
    sub->add_option("--txt", exported.txt, "Text tablature")->type_name("FILE");
    sub->add_option("--musicxml", exported.musicxml, "Score for notation programs")
        ->type_name("FILE");
    sub->add_option("--midi", exported.midi, "What is played, for sequencers")->type_name("FILE");
    sub->add_option("--wav", exported.wav, "The sound of it, as render writes it")
        ->type_name("FILE");
    sub->add_option("--metric", exported.metric,
                    "Time signature of score and MIDI (default: the song's, or 4/4)")
        ->check(CLI::IsMember({"4/4", "3/4", "6/8", "12/8"}));
    sub->add_flag("--force", exported.force, "Replace files that are there already");
  }

  void addSoundOptions(CLI::App& sub, cli::SoundOptions& sound) {
    sub.add_option("--rate", sound.rate,
                   "Speed, where 1 is that of the recording (default: the song's)")
        ->check(cli::numbersWithin(0.1, 4));
    sub.add_option("--loop", sound.loop,
                   "Positions of the chords to play (default: the song's loop, or all)")
        ->expected(2)
        ->type_name("FROM TO");
    sub.add_option("--soundfont", sound.soundFont,
                   "SoundFont to play with (default: what is found)")
        ->type_name("FILE");
  }

  void addPlay() {
    CLI::App* sub = app.add_subcommand("play", "Play a song, or its loop until Ctrl-C");
    sub->callback([this] {
      if (played.file == "") throw CLI::ValidationError("--file", "takes a name");
      storeMustExist = true;
      action = always([this] { cli::play(played); });
    });
    sub->add_option("SONG", played.song, "Title, or ALBUM/TITLE")->required()->type_name("");
    addSoundOptions(*sub, played.sound);
    CLI::Option* device =
        sub->add_option("--device", played.device, "Output (default: what the system has chosen)");
    CLI::Option* wave =
        sub->add_option("--file", played.file, "WAV file that is played into instead");
    wave->type_name("FILE")->excludes(device);
    sub->add_flag("--force", played.force, "Replace that file when it is there already")
        ->needs(wave);
  }

  void addRender() {
    CLI::App* sub = app.add_subcommand("render", "Write what a song sounds like to a WAV file");
    sub->callback([this] {
      storeMustExist = true;
      action = always([this] { cli::render(rendered); });
    });
    sub->add_option("SONG", rendered.song, "Title, or ALBUM/TITLE")->required()->type_name("");
    sub->add_option("FILE", rendered.file, "WAV file")->required()->type_name("");
    addSoundOptions(*sub, rendered.sound);
    sub->add_flag("--force", rendered.force, "Replace a file that is there already");
  }

  void addApply() {
    CLI::App* sub = app.add_subcommand("apply", "Derive songs by the commands of the song menu");
    auto list = std::make_shared<bool>(false);
    sub->add_option("SONG", apply.commands, "Song, unless --all, and commands in turn")
        ->type_name("[SONG] COMMAND...");
    sub->add_flag("--list", *list, "Print the menu with the names of the commands");
    sub->add_option("--album", apply.album, "Album that the song is in")->type_name("ALBUM");
    sub->add_flag("--all", apply.all, "Every song of the album");
    sub->callback([this, list] {
      if (*list) {
        storeNeeded = false;
        action = always(&cli::listCommands);
        return;
      }
      storeMustExist = true;
      checkApply();
      action = [this] { return cli::applyCommands(apply); };
    });
  }

  /// The first word is the song, unless all songs are meant.
  void checkApply() {
    auto& words = apply.commands;
    if (apply.all && !apply.album) throw CLI::ValidationError("--all", "goes with --album");
    if (!apply.all && !words.empty()) {
      apply.song = words.front();
      words.erase(words.begin());
    }
    if (words.empty()) throw CLI::ValidationError("apply", "takes a song and a command or more");
    for (const std::string& word : words)
      if (!findSongCommand(word))
        throw CLI::ValidationError(word, "is no command; korvel-cli apply --list prints them");
  }

  void addEdits() {
    const auto withRange = [this](CLI::App* sub) {
      CLI::Option* first = sub->add_option("FROM", from, "Position of a chord, from 1");
      CLI::Option* last = sub->add_option("TO", to, "Position of a chord")->needs(first);
      return std::pair(first, last);
    };
    auto clear = std::make_shared<bool>(false);
    CLI::App* loop = withSong(caring(
        "loop", "Set the playback loop of a song",
        always([this, clear] { *clear ? cli::clearLoop(song) : cli::setLoop(song, from, to); })));
    CLI::Option* last = withRange(loop).second;
    CLI::Option* off = loop->add_flag("--clear", *clear, "Take the loop away")->excludes(last);
    loop->parse_complete_callback([this, last, off] {
      storeMustExist = true;
      if (last->empty() && off->empty())
        throw CLI::ValidationError("loop", "takes FROM and TO, or --clear");
    });
    withSong(caring("clone", "Copy a song", always([this] { cli::cloneSong(song); })));
    withSong(caring("rename", "Give a song another title",
                    always([this] { cli::renameSong(song, target); })))
        ->add_option("TITLE", target)
        ->required()
        ->type_name("");
    withSong(caring("move", "Move a song to an album, which is made when missing",
                    always([this] { cli::moveSong(song, target); })))
        ->add_option("ALBUM", target)
        ->required()
        ->type_name("");
    withSong(caring("merge", "Add the tones of another song, chord by chord, in a new song",
                    always([this] { cli::mergeSongs(song, target); })))
        ->add_option("OTHER", target)
        ->required()
        ->type_name("");
    const auto [begin, end] =
        withRange(withSong(caring("extract", "Copy chords to a new song",
                                  always([this] { cli::extractPart(song, from, to); }))));
    begin->required();
    end->required();
  }

  void addStoreCommands() {
    command("devices", "List the devices that sound is played and recorded on",
            always(&cli::listDevices))
        ->parse_complete_callback([this] { storeNeeded = false; });
    command("list", "List albums and songs", always(&cli::listSongs));
    addTunings();
    addInstruments();
    caring("check", "Check that the store is sound", always(&cli::checkStore));
    caring("backup", "Copy the store to a new file", always([this] { cli::backupStore(file); }))
        ->add_option("FILE", file, "The copy")
        ->required()
        ->type_name("");
  }

  /// A command with commands of its own below it; by itself it lists.
  CLI::App* listing(const char* name, const char* description, void (*list)()) {
    CLI::App* sub = app.add_subcommand(name, description);
    sub->require_subcommand(0, 1);
    sub->callback([this, sub, list] {
      if (sub->get_subcommands().empty()) action = always(list);
    });
    return sub;
  }

  CLI::App* below(CLI::App& above, const char* name, const char* description, const Action& run) {
    CLI::App* sub = above.add_subcommand(name, description);
    sub->callback([this, run] { action = run; });
    return sub;
  }

  void addTunings() {
    CLI::App& tunings =
        *listing("tunings", "List the tunings, select one or add one", &cli::listTunings);
    below(tunings, "select", "Select the tuning of new songs",
          always([this] { cli::selectTuningNamed(target); }))
        ->add_option("TUNING", target, "Its name")
        ->required()
        ->type_name("");
    CLI::App* add =
        below(tunings, "add", "Add a tuning", always([this] { cli::addTuning(tuning); }));
    CLI::Option* like =
        add->add_option("TUNING", tuning.like, "\"Standard\", \"Drop D\" or \"Open G\"")
            ->type_name("");
    CLI::Option* name = add->add_option("--name", tuning.name, "Its name (default: a free one)");
    CLI::Option* strings =
        add->add_option("--strings", tuning.notes, "Or its notes, such as D2, lowest string first")
            ->expected(kStrings)
            ->type_name("NOTE...")
            ->needs(name)
            ->excludes(like);
    add->parse_complete_callback([like, strings] {
      if (like->empty() && strings->empty())
        throw CLI::ValidationError("add", "takes a TUNING, or --strings and --name");
    });
  }

  void addInstruments() {
    CLI::App& instruments =
        *listing("instruments", "List the instruments of the classic detection, or change them",
                 &cli::listInstruments);
    const auto taking = [](CLI::App* sub, const char* name, std::string& word, const char* what) {
      sub->add_option(name, word, what)->required()->type_name("");
      return sub;
    };
    taking(below(instruments, "select", "Select the instrument that confirms tones",
                 always([this] { cli::selectInstrumentNamed(target); })),
           "INSTRUMENT", target, "Its name");
    taking(below(instruments, "import", "Add an instrument from its definition file",
                 always([this] { cli::importInstrumentFile(file); })),
           "FILE", file, "Definition file");
    auto force = std::make_shared<bool>(false);
    CLI::App* write = below(instruments, "export", "Write the definition file of an instrument",
                            always([this, force] { cli::exportInstrument(target, file, *force); }));
    taking(taking(write, "INSTRUMENT", target, "Its name"), "FILE", file, "Definition file");
    write->add_flag("--force", *force, "Replace a file that is there already");
    CLI::App* calibrate = below(instruments, "calibrate",
                                "Add an instrument from a recording of single notes: each string "
                                "open and at fret 7, with silence between them",
                                always([this] { cli::calibrateInstrument(file, target); }));
    taking(calibrate, "FILE", file, "Sound file");
    calibrate->add_option("--name", target, "Name of the instrument")->required();
  }
};

/// CLI11 reads "[a,b]" as a list; marked, such a name stays what it is.
constexpr char kMark = '\x01';

std::vector<std::string> markedArguments(int argc, char** argv) {
  std::vector<std::string> words;
  for (int i = argc - 1; i > 0; --i) {  // CLI11 takes them from the back
    const std::string word = argv[i];
    words.push_back(word.starts_with('[') ? kMark + word : word);
  }
  return words;
}

void unmark(std::string& word) {
  if (word.starts_with(kMark)) word.erase(0, 1);
}

void unmarkAll(Usage& usage) {
  for (std::string* word :
       {&usage.store, &usage.song, &usage.file, &usage.target, &usage.apply.song,
        &usage.exported.song, &usage.transcribe.file, &usage.record.device, &usage.rendered.song,
        &usage.played.song, &usage.played.device, &usage.rendered.file})
    unmark(*word);
  for (std::string& file : usage.import.files) unmark(file);
  unmark(usage.tuning.like);
  for (auto* word : {&usage.import.album,
                     &usage.import.title,
                     &usage.import.tuning,
                     &usage.apply.album,
                     &usage.exported.txt,
                     &usage.exported.musicxml,
                     &usage.exported.midi,
                     &usage.exported.wav,
                     &usage.rendered.sound.soundFont,
                     &usage.played.sound.soundFont,
                     &usage.played.file,
                     &usage.transcribe.json,
                     &usage.transcribe.midi,
                     &usage.transcribe.musicxml,
                     &usage.transcribe.tuning,
                     &usage.record.file,
                     &usage.record.album,
                     &usage.record.title,
                     &usage.record.wav,
                     &usage.record.tuning,
                     &usage.tuning.name})
    if (*word) unmark(**word);
}

/// A store without settings is filled first, as a window does it before it opens.
void openStore(const Usage& usage) {
  if (!usage.store.empty()) QBTabMgr::setStorePath(usage.store);
  const std::string path = QBTabMgr::storePath();
  if (usage.storeMustExist && !platform::isThere(path))
    throw cli::CliError(path + ": there is no such store");
  if (!QBTabMgr::db().isInitialized()) QBTabMgr::db().initializeData();
}

}  // namespace

int main(int argc, char** argv) {
  // A file that reaches its size limit is to be an error like a full disk, not the end.
  std::signal(SIGXFSZ, SIG_IGN);
  Usage usage;
  try {
    usage.app.parse(markedArguments(argc, argv));
    unmarkAll(usage);
  } catch (const CLI::ParseError& error) {
    return usage.app.exit(error) == 0 ? EXIT_SUCCESS : kWrongUsage;
  }
  cli::Console& console = cli::Console::attached();
  int status = EXIT_FAILURE;
  try {
    if (usage.storeNeeded) openStore(usage);
    status = usage.action();
  } catch (const std::exception& error) {
    console.error(error.what());
  }
  QBTabMgr::clearDb();
  return status;
}
