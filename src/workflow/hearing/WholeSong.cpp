// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/WholeSong.h"

#include <filesystem>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "tab/text/SongDrawing.h"
#include "workflow/editing/doubts/SongCorrections.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/editing/words/AnchoredWords.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

bool isBetter(const QBSong& heard, const QBSong& song) {
  return heard.isWhole() ? hasTones(heard) : heard.chords().size() > song.chords().size();
}

void redraw(QBSong& song) {
  if (!song.chords().empty()) buildTab(song);
}

/// The user may have renamed it meanwhile, and changed chords before.
void putInPlace(QBSong& heard, QBSong& song) {
  const bool renamed = heard.title() != song.title();
  EditedChords edited(song);
  edited.putInto(heard);
  const bool carried = SongCorrections::carry(song, heard);
  heard.setTitle(song.title());
  heard.setDescr(song.descr());
  heard.setTempoRate(song.tempoRate());
  if (!song.practice().empty()) heard.setPractice(song.practice());
  heard.takeWordsOf(song);
  TimedWords(song).putInto(heard);
  heard.setAlbum(song.album());
  if (renamed || carried || !edited.empty()) redraw(heard);
  song.album()->deleteSong(&song);
}

}  // namespace

QBSong* takePlace(QBSong* heard, QBSong* song, QBSession& session) {
  const platform::Ref<QBSong> fresh(heard);
  const platform::Ref<QBSong> old(song);
  QBTabMgr& db = QBTabMgr::of(*old);
  const bool better = isBetter(*fresh, *old), wasActive = session.activeSong() == old;
  const platform::Phrase title = old->isWhole() ? platform::phrase("UndoAction", "Hear Again")
                                                : platform::phrase("UndoAction", "Go On Hearing");
  {
    const platform::UndoGroup action(db.context().undoManager(), title);
    if (better) {
      putInPlace(*fresh, *old);
    } else if (fresh->isWhole()) {
      old->clearUnheard();
      redraw(*old);
    }
  }
  if (!better) db.deleteSong(fresh);
  session.refreshTree();  // shows a neighbour of a song that is gone
  QBSong* const stays = better ? fresh.get() : old.get();
  if (wasActive) session.setActiveSong(stays);
  return stays;
}

void takeAsWhole(QBSong& song) {
  Edit edit(song, platform::phrase("UndoAction", "Take As Whole"));
  song.clearUnheard();
  edit.redraw();
  edit.done(platform::phrase("Log", "Song taken as whole."));
}

std::string recordingFileOf(const QBSong& song) {
  if (!song.isWhole()) return song.unheard();
  const SongRecording* recording = song.recording();
  if (!recording) return {};
  return fileOfRecording(*recording, Proof::atOnce).value_or(recording->path()).string();
}

bool canHearAnew(const QBSong& song) {
  const SongRecording* recording = song.recording();
  return song.isWhole() && recording && !SongInWork::is(song) &&
         fileOfRecording(*recording, Proof::known);
}

bool canHearAgain(const QBSong& song) {
  std::error_code unknown;
  return !song.isWhole() && !SongInWork::is(song) &&
         std::filesystem::is_regular_file(song.unheard(), unknown);
}

}  // namespace korvel
