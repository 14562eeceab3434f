// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/VoiceArrangements.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "tab/filters/QBExtractVoicings.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/QBMiddleVoiceFilter.h"
#include "workflow/arranging/bars/FilledBars.h"

namespace korvel {

namespace {

/// A list to play through: its chords come in another order than those of the recording.
void giveBarEach(QBSong& song, QBSong& list) {
  const BarSpan like = barsOf(song).back();
  const int length = like.fullTicks();
  list.takeRhythmOf(song);
  list.setRecording(nullptr);
  std::vector<PlacedChord> placed;
  for (const auto& chord : list.allChords()) {
    chord->clearBeatTime();
    for (const auto& tone : tonesOf(*chord)) {
      tone->setTicks(length);
      tone->setDuration(sixteenthsAlone(0, length, like.isInCompoundTime()));
    }
    placed.push_back({chord, static_cast<int>(placed.size()) * length});
  }
  const int end = static_cast<int>(placed.size()) * length;
  fillBars(list, placed, barsOfMetre(like.beat, like.beattype, 0, end));
}

}  // namespace

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
  if (song.isOnBeats() && !voicings->chords().empty()) giveBarEach(song, *voicings);
  buildTab(*voicings);
  return voicings;
}

}  // namespace korvel
