// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Import.h"

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "cli/CliError.h"
#include "cli/Console.h"
#include "cli/SoundCheck.h"
#include "export/SongJson.h"
#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "model/QBTuning.h"
#include "platform/PlainRunLoop.h"
#include "workflow/QBCmdImportSong.h"
#include "workflow/QBNameMgr.h"
#include "workflow/QBSession.h"
#include "workflow/QBTreeNode.h"

namespace korvel::cli {
namespace {

/// Makes a tuning the active one for a while.
class TuningForNow {
 public:
  explicit TuningForNow(QBTuning* tuning) : m_before(QBTabMgr::db().selectedTuning()) {
    if (tuning) QBTabMgr::db().selectTuning(tuning);
  }
  TuningForNow(const TuningForNow&) = delete;
  TuningForNow& operator=(const TuningForNow&) = delete;
  ~TuningForNow() {
    if (QBTabMgr::db().selectedTuning() != m_before) QBTabMgr::db().selectTuning(m_before);
  }

 private:
  platform::Ref<QBTuning> m_before;
};

/// The song that an import fills, with the album made for it; taken back unless kept.
class NewSong {
 public:
  NewSong(const ImportOptions& options, const std::string& file) {
    QBTabMgr& db = QBTabMgr::db();
    const std::string name = std::filesystem::path(file).stem().string();
    const std::string wanted = options.album.value_or(QBNameMgr(nullptr, name).newAlbumName());
    m_album = db.findAlbumByName(wanted);
    m_madeAlbum = !m_album;
    if (!m_album) m_album = db.createAlbum(wanted, false);
    const std::string title = options.title.value_or(options.album ? name : wanted);
    m_song = m_album->createSong(QBNameMgr(m_album, title).newName());
  }
  NewSong(const NewSong&) = delete;
  NewSong& operator=(const NewSong&) = delete;
  ~NewSong() {
    if (m_kept) return;
    m_album->deleteSong(m_song);
    if (m_madeAlbum) QBTabMgr::db().deleteAlbum(m_album);
  }

  void keep() { m_kept = true; }
  QBAlbum* album() const { return m_album; }
  QBSong* song() const { return m_song; }

 private:
  platform::Ref<QBAlbum> m_album;
  platform::Ref<QBSong> m_song;
  bool m_madeAlbum = false;
  bool m_kept = false;
};

QBTuning* tuningNamed(const std::string& name) {
  std::string known;
  for (const auto& tuning : QBTabMgr::db().tunings()) {
    if (tuning->descr() == name) return tuning;
    known += (known.empty() ? "\"" : ", \"") + tuning->descr() + '"';
  }
  throw CliError("no tuning \"" + name + "\"; there is " + known);
}

void run(QBCmdImportSong& command, bool stepped) {
  command.onProgress([](double share) { Console::attached().progress(share); });
  if (!stepped) {
    command.run();
    return;
  }
  command.runInBackground();
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !command.isRunning(); });
}

platform::Ref<QBSong> importFile(const ImportOptions& options, const std::string& file,
                                 QBTuning* tuning) {
  requireSound(file);
  NewSong made(options, file);
  {
    const TuningForNow chosen(tuning);
    if (tuning) made.song()->setTuning(tuning);
    const auto command = std::make_shared<QBCmdImportSong>(
        std::make_shared<QBAlbumNode>(made.album()), file, made.song());
    QBSession::session().addJob(command);
    run(*command, options.stepped);
  }
  if (made.song()->chords().empty())
    throw CliError(file + ": no tones were heard in it; nothing was stored");
  if (!QBTabMgr::db().save()) throw CliError(file + ": the song could not be saved");
  made.keep();
  return made.song();
}

void print(const ImportOptions& options, const std::vector<platform::Ref<QBSong>>& songs) {
  if (!options.json) {
    for (const auto& song : songs) Console::attached().print(song->tabulature());
  } else if (options.files.size() == 1) {
    for (const auto& song : songs) Console::attached().print(songAsJson(*song));
  } else {
    Console::attached().print(songsAsJson({songs.begin(), songs.end()}));
  }
}

}  // namespace

int importFiles(const ImportOptions& options) {
  QBTuning* tuning = options.tuning ? tuningNamed(*options.tuning) : nullptr;
  std::vector<platform::Ref<QBSong>> songs;
  int status = EXIT_SUCCESS;
  for (const std::string& file : options.files) {
    try {
      songs.push_back(importFile(options, file, tuning));
    } catch (const CliError& error) {
      Console::attached().error(error.what());
      status = EXIT_FAILURE;
    }
  }
  print(options, songs);
  return status;
}

}  // namespace korvel::cli
