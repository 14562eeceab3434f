// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/recordings/PlacedRecording.h"

#include <set>
#include <utility>
#include <vector>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using platform::phrase;

/// A recording, and the file that may be it.
using Moved = std::pair<SongRecording*, fs::path>;

std::set<SongRecording*> recordingsOf(const QBTabMgr& db) {
  std::set<SongRecording*> all;
  for (const auto& album : db.albums())
    for (QBSong* song : album->songs())
      if (song->recording()) all.insert(song->recording());
  return all;
}

/// Where a file of the one folder, or of one below it, is in the other; empty for files elsewhere.
fs::path movedWith(const fs::path& file, const fs::path& from, const fs::path& to) {
  const fs::path name = file.lexically_relative(from);
  const bool isWithin = !name.empty() && *name.begin() != "..";
  return isWithin ? to / name : fs::path();
}

/// By names and sizes, and as far as the proof goes.
std::vector<Moved> lostWith(const SongRecording& found, const QBTabMgr& db, const fs::path& file,
                            Proof proof) {
  const fs::path from = fs::path(found.path()).parent_path();
  const fs::path to = fs::absolute(file).parent_path();
  std::vector<Moved> lost;
  for (SongRecording* recording : recordingsOf(db)) {
    const fs::path there = movedWith(recording->path(), from, to);
    if (recording == &found || recording->hash().empty() || there.empty()) continue;
    if (isRecording(*recording, there, proof) && !isRecording(*recording, recording->path(), proof))
      lost.emplace_back(recording, there);
  }
  return lost;
}

SongRecording& requireRecording(QBSong& song) {
  if (!song.recording())
    throw EditRefused(phrase("Message", "%1: no recording is stored with the song"), song.title());
  return *song.recording();
}

}  // namespace

std::size_t placeRecording(QBSong& song, const fs::path& file) {
  SongRecording& recording = requireRecording(song);
  if (!isRecording(recording, file))
    throw EditRefused(phrase("Message", "%1: is not the recording that the song was heard in"),
                      file.string());
  Edit edit(song, phrase("UndoAction", "Find Recording"));
  std::size_t others = 0;
  for (const auto& [lost, there] : lostWith(recording, QBTabMgr::of(song), file, Proof::atOnce)) {
    if (!isRecording(*lost, there)) continue;
    lost->setPath(there.string());
    ++others;
  }
  recording.setPath(fs::absolute(file).string());
  if (others == 0)
    edit.done(phrase("Log", "Recording found again."));
  else
    edit.done({phrase("Log", "Recordings found again: %1."), others + 1});
  return others;
}

platform::Slices readingPlaced(QBSong& song, fs::path file) {
  std::vector<fs::path> files;
  if (const SongRecording* recording = song.recording();
      recording && isRecording(*recording, file, Proof::known)) {
    files.push_back(file);
    for (const auto& moved : lostWith(*recording, QBTabMgr::of(song), file, Proof::known))
      files.push_back(moved.second);
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    platform::Slices reading = readingContent(files[i]);
    while (reading.next())
      co_yield (static_cast<double>(i) + reading.done()) / static_cast<double>(files.size());
  }
}

}  // namespace korvel
