// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/shelf/SongOperations.h"

#include <utility>

#include "arrange/harmony/QBOptionRemover.h"
#include "arrange/shelf/QBRemoveSilent.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractVoice.h"
#include "arrange/voices/QBRemoveVoice.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/arranging/HarmonyArrangements.h"
#include "workflow/arranging/VoiceArrangements.h"

namespace korvel {
namespace {

/// Deletes an intermediate song.
QBSong* withoutStep(QBSong* song, QBSong* step, const std::string& title) {
  song->requireAlbum().deleteSong(step);
  return finished(song, title);
}

}  // namespace

QBSong* toMelody(QBSong& song) { return derivedByLetter(song, "extractMelody"); }

QBSong* toBrass(QBSong& song) { return derivedByLetter(song, "extractBrass"); }

QBSong* toMelodyBrass(QBSong& song) { return derivedByLetter(song, "extractMelBrass"); }

QBSong* removeMelodyBrass(QBSong& song) { return derivedByLetter(song, "removeMelBrass"); }

QBSong* removeBrass(QBSong& song) { return derivedByLetter(song, "removeBrass"); }

QBSong* extractPlectrumLead(QBSong& song) { return derivedByLetter(song, "extractPlectrumLead"); }

QBSong* extractPlectrumSecond(QBSong& song) {
  return derivedByLetter(song, "extractPlectrumSecond");
}

QBSong* extractPlectrumThird(QBSong& song) { return derivedByLetter(song, "extractPlectrumThird"); }

QBSong* pushDownStrings(QBSong& song) { return derivedByLetter(song, "pushDownStrings"); }

QBSong* toLeftHand(QBSong& song) { return derivedByLetter(song, "toLeftHand"); }

QBSong* toRightHand(QBSong& song) { return derivedByLetter(song, "toRightHand"); }

QBSong* findBestFingering(QBSong& song) { return derivedByLetter(song, "findBestFingering"); }

QBSong* removeNonChordTones(QBSong& song) { return derivedByLetter(song, "removeNonChordTones"); }

QBSong* applyLoudest(QBSong& song, int count) {
  return filtered(song, nameOf(song).applyLoudest(count), QBApplyLoudest(count));
}

QBSong* toVoice(QBSong& song, int voice) {
  return filtered(song, nameOf(song).toVoice(voice), QBExtractVoice(voice));
}

QBSong* removeVoice(QBSong& song, int voice) {
  return filtered(song, nameOf(song).removeVoice(voice), QBRemoveVoice(voice));
}

QBSong* extractMiddleVoices(QBSong& song, int count) {
  constexpr int kOuterVoices = 2;
  return extractMiddleVoices(song, count, nameOf(song).extractLeadingVoices(count + kOuterVoices));
}

QBSong* removeOptions(QBSong& song, std::vector<int> options) {
  return filtered(song, nameOf(song).removeOptions(), QBOptionRemover(std::move(options)));
}

QBSong* transformUp(QBSong& song, int steps) {
  return transposed(song, steps, nameOf(song).transformUp(steps));
}

QBSong* transformDown(QBSong& song, int steps) {
  return transposed(song, -steps, nameOf(song).transformDown(steps));
}

QBSong* toLeftRightHand(QBSong& song) {
  const std::string title = nameOf(song).toLeftRightHand();
  QBSong* left = toLeftHand(song);
  return withoutStep(toRightHand(*left), left, title);
}

QBSong* toRightLeftHand(QBSong& song) {
  const std::string title = nameOf(song).toRightLeftHand();
  QBSong* right = toRightHand(song);
  return withoutStep(toLeftHand(*right), right, title);
}

QBSong* removeSilent(QBSong& song, float threshold) {
  return filtered(song, nameOf(song).removeSilent(), QBRemoveSilent(threshold));
}

}  // namespace korvel
