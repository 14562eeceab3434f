// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/VoiceArrangements.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "tab/filters/QBExtractVoicings.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/QBMiddleVoiceFilter.h"

namespace korvel {

QBSong* extractMiddleVoices(QBSong& song, int count, const std::string& title) {
  return finished(QBMiddleVoiceFilter(&song, count).filter(), title);
}

QBSong* extractVoicings(QBSong& song, int minimum) {
  QBSong* copy = song.clone();
  QBExtractVoicings visitor(copy, minimum);
  copy->iterate(visitor);
  visitor.cleanUp();
  song.requireAlbum().deleteSong(copy);
  QBSong* voicings = visitor.voicings();
  voicings->setTuning(song.tuning());
  buildTab(*voicings);
  return voicings;
}

}  // namespace korvel
