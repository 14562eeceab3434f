// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>

#include "cli/CliError.h"
#include "cli/Console.h"
#include "cli/Import.h"
#include "cli/StoreCommands.h"
#include "model/QBTabMgr.h"

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
  std::string store, song, file;
  cli::ImportOptions import;
  bool storeMustExist = false;
  Action action;

  Usage() {
    app.require_subcommand(1);
    app.add_option("--store", store, "Store file (default: Korvel.sqlite in your data folder)")
        ->type_name("FILE");
    app.footer(
        "SONG is a title, or ALBUM/TITLE where titles repeat.\n"
        "Exit status: 0 done, 1 failed, 2 wrong usage, 255 the store cannot be opened.");
    addImport();
    addSongCommands();
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
    sub->add_flag("--json", import.json, "Print the song as JSON");
    sub->add_flag("--stepped", import.stepped, "Import step by step on a timer");
  }

  void addSongCommands() {
    const auto withSong = [this](CLI::App* sub) {
      sub->add_option("SONG", song, "Title, or ALBUM/TITLE")->required()->type_name("");
      return sub;
    };
    withSong(
        caring("show", "Print the tablature of a song", always([this] { cli::showSong(song); })));
    withSong(caring("dump", "Print a song as JSON", always([this] { cli::dumpSong(song); })));
    withSong(caring("delete", "Delete a song", always([this] { cli::deleteSong(song); })));
    withSong(
        caring("export", "Write a song to a file", always([this] { cli::exportText(song, file); })))
        ->add_option("--txt", file, "Text tablature")
        ->required()
        ->type_name("FILE");
  }

  void addStoreCommands() {
    command("list", "List albums and songs", always(&cli::listSongs));
    command("tunings", "List the tunings", always(&cli::listTunings));
    caring("check", "Check that the store is sound", always(&cli::checkStore));
    caring("backup", "Copy the store to a new file", always([this] { cli::backupStore(file); }))
        ->add_option("FILE", file, "The copy")
        ->required()
        ->type_name("");
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
  for (std::string* word : {&usage.store, &usage.song, &usage.file}) unmark(*word);
  for (std::string& file : usage.import.files) unmark(file);
  for (auto* word : {&usage.import.album, &usage.import.title, &usage.import.tuning})
    if (*word) unmark(**word);
}

/// A store without settings is filled first, as a window does it before it opens.
void openStore(const Usage& usage) {
  if (!usage.store.empty()) QBTabMgr::setStorePath(usage.store);
  const std::string path = QBTabMgr::storePath();
  if (usage.storeMustExist && !std::filesystem::exists(path))
    throw cli::CliError(path + ": there is no such store");
  if (!QBTabMgr::db().isInitialized()) QBTabMgr::db().initializeData();
}

}  // namespace

int main(int argc, char** argv) {
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
    openStore(usage);
    status = usage.action();
  } catch (const std::exception& error) {
    console.error(error.what());
  }
  QBTabMgr::clearDb();
  return status;
}
