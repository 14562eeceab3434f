// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/KeptRecording.h"

#include <filesystem>

#include "analysis/beats/HeardSound.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/media/ContentHash.h"
#include "rhythm/stored/HeardBytes.h"
#include "workflow/hearing/RecordingTags.h"

namespace korvel {
namespace {

void keepHeard(SongRecording& recording, const HeardSound& heard) {
  recording.setSeconds(heard.seconds);
  recording.setTuningOffset(heard.tuningOffset);
  recording.setCapo(heard.capo);
  recording.setBand(heard.isBand);
  recording.setNotes(rhythm::bytesOf({heard.notes, heard.doubtful}));
  recording.setRhythm(rhythm::bytesOf(heard.rhythm, heard.wishes));
}

void keepTags(SongRecording& recording, const std::string& file) {
  const RecordingTags tags(file);
  if (tags.title) recording.setTitle(*tags.title);
  if (tags.artist) recording.setArtist(*tags.artist);
}

}  // namespace

platform::Slices keepingRecording(QBTabMgr& db, QBSong& song, std::string file,
                                  const HeardSound& heard) {
  platform::ContentHash hash(file);
  while (hash.step()) co_yield 0;
  SongRecording* recording = db.createRecording(std::filesystem::absolute(file).string());
  recording->setSize(hash.size());
  recording->setHash(hash.digits());
  keepTags(*recording, file);
  keepHeard(*recording, heard);
  song.setRecording(recording);
}

}  // namespace korvel
