// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/VoiceArrangements.h"

#include "arrange/shelf/QBRemoveSilent.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "arrange/voices/QBExtractMelodyBrass.h"
#include "arrange/voices/QBExtractVoice.h"
#include "arrange/voices/QBRemoveBrass.h"
#include "arrange/voices/QBRemoveMelodyBrass.h"
#include "arrange/voices/QBRemoveVoice.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "tab/filters/QBExtractVoicings.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/QBMiddleVoiceFilter.h"

namespace korvel {

QBSong* applyLoudest(QBSong& song, int count) {
  return filtered(song, nameOf(song).applyLoudest(count), QBApplyLoudest(count));
}

QBSong* removeSilent(QBSong& song, float threshold) {
  return filtered(song, nameOf(song).removeSilent(), QBRemoveSilent(threshold));
}

QBSong* toVoice(QBSong& song, int voice) {
  return filtered(song, nameOf(song).toVoice(voice), QBExtractVoice(voice));
}

QBSong* removeVoice(QBSong& song, int voice) {
  return filtered(song, nameOf(song).removeVoice(voice), QBRemoveVoice(voice));
}

QBSong* toMelody(QBSong& song) {
  return filtered(song, nameOf(song).toMelody(), QBExtractMelody());
}

QBSong* toBrass(QBSong& song) { return filtered(song, nameOf(song).toBrass(), QBExtractBrass()); }

QBSong* toMelodyBrass(QBSong& song) {
  return filtered(song, nameOf(song).toMelodyBrass(), QBExtractMelodyBrass());
}

QBSong* removeMelodyBrass(QBSong& song) {
  return filtered(song, nameOf(song).removeMelodyBrass(), QBRemoveMelodyBrass());
}

QBSong* removeBrass(QBSong& song) {
  return filtered(song, nameOf(song).removeBrass(), QBRemoveBrass());
}

QBSong* extractMiddleVoices(QBSong& song, int count) {
  constexpr int kOuterVoices = 2;
  return extractMiddleVoices(song, count, nameOf(song).extractLeadingVoices(count + kOuterVoices));
}

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
