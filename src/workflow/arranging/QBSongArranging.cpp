// SPDX-License-Identifier: GPL-3.0-or-later
#include <utility>

#include "arrange/chords/QBApplyMetric.h"
#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/harmony/QBChordCleaner.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/harmony/QBOptionRemover.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "arrange/voices/QBExtractMelodyBrass.h"
#include "arrange/voices/QBExtractVoice.h"
#include "arrange/voices/QBExtractVoicings.h"
#include "arrange/voices/QBMiddleVoiceFilter.h"
#include "arrange/voices/QBRemoveBrass.h"
#include "arrange/voices/QBRemoveMelodyBrass.h"
#include "arrange/voices/QBRemoveSilent.h"
#include "arrange/voices/QBRemoveVoice.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "tab/filters/BestFingering.h"
#include "tab/filters/QBTabFilter.h"
#include "tab/filters/QBTabToneTrimmer.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {
namespace {

QBNameMgr nameOf(const QBSong& song) { return {&song.requireAlbum(), song.title()}; }

/// The tablature's heading is the title, so it is drawn last.
QBSong* finished(QBSong* song, const std::string& title) {
  song->setTitle(title);
  song->buildTab();
  return song;
}

/// Deletes an intermediate song.
QBSong* withoutStep(QBSong* song, QBSong* step, const std::string& title) {
  song->requireAlbum().deleteSong(step);
  return finished(song, title);
}

}  // namespace

/// A clone under the title, with the visitor run over it.
QBSong* QBSong::filtered(const std::string& derivedTitle, QBChordVisitor& visitor) {
  QBSong* copy = clone();
  copy->setTitle(derivedTitle);
  copy->iterate(visitor);
  copy->buildTab();
  return copy;
}

/// A song under the title that the visitor, made for it, fills from this one.
template <class Visitor>
QBSong* QBSong::rewritten(const std::string& derivedTitle) {
  QBSong* made = requireAlbum().createSong(derivedTitle);
  made->setTuning(tuning());  // its strings are the source's, whatever the instrument's tuning is
  Visitor visitor(made);
  iterate(visitor);
  made->buildTab();
  return made;
}

// ---- voices and loudness

QBSong* QBSong::applyLoudest(int count) {
  QBApplyLoudest visitor(count);
  return filtered(nameOf(*this).applyLoudest(count), visitor);
}

QBSong* QBSong::removeSilent(float threshold) {
  QBRemoveSilent visitor(threshold);
  return filtered(nameOf(*this).removeSilent(), visitor);
}

QBSong* QBSong::toVoice(int voice) {
  QBExtractVoice visitor(voice);
  return filtered(nameOf(*this).toVoice(voice), visitor);
}

QBSong* QBSong::removeVoice(int voice) {
  QBRemoveVoice visitor(voice);
  return filtered(nameOf(*this).removeVoice(voice), visitor);
}

QBSong* QBSong::toMelody() {
  QBExtractMelody visitor;
  return filtered(nameOf(*this).toMelody(), visitor);
}

QBSong* QBSong::toBrass() {
  QBExtractBrass visitor;
  return filtered(nameOf(*this).toBrass(), visitor);
}

QBSong* QBSong::toMelodyBrass() {
  QBExtractMelodyBrass visitor;
  return filtered(nameOf(*this).toMelodyBrass(), visitor);
}

QBSong* QBSong::removeMelodyBrass() {
  QBRemoveMelodyBrass visitor;
  return filtered(nameOf(*this).removeMelodyBrass(), visitor);
}

QBSong* QBSong::removeBrass() {
  QBRemoveBrass visitor;
  return filtered(nameOf(*this).removeBrass(), visitor);
}

QBSong* QBSong::extractMiddleVoices(int count) {
  constexpr int kOuterVoices = 2;
  const std::string derived = nameOf(*this).extractLeadingVoices(count + kOuterVoices);
  return finished(QBMiddleVoiceFilter(this, count).filter(), derived);
}

QBSong* QBSong::extractVoicings(int minimum) {
  QBSong* copy = clone();
  QBExtractVoicings visitor(copy, minimum);
  copy->iterate(visitor);
  visitor.cleanUp();
  requireAlbum().deleteSong(copy);
  QBSong* voicings = visitor.voicings();
  voicings->setTuning(tuning());
  voicings->buildTab();
  return voicings;
}

// ---- harmony and metre

QBSong* QBSong::removeOptions(std::vector<int> options) {
  QBOptionRemover visitor(std::move(options));
  return filtered(nameOf(*this).removeOptions(), visitor);
}

QBSong* QBSong::removeNonChordTones() {
  QBNonChordToneRemover visitor;
  return filtered(nameOf(*this).removeNonChordTones(), visitor);
}

QBSong* QBSong::applyMetric(int beat, int beattype) {
  const std::string derived = nameOf(*this).applyMetric(beat, beattype);
  QBSong* copy = clone();
  QBApplyMetric visitor(beat, beattype, copy);
  copy->setTitle(derived);
  copy->iterate(visitor);
  copy->buildTab();
  return copy;
}

// ---- playability

QBSong* QBSong::extractPlectrumLead() {
  QBPlectrumExtractor visitor(0);
  return filtered(nameOf(*this).extractPlectrumLead(), visitor);
}

QBSong* QBSong::extractPlectrumSecond() {
  QBPlectrumExtractor visitor(1);
  return filtered(nameOf(*this).extractPlectrumSecond(), visitor);
}

QBSong* QBSong::extractPlectrumThird() {
  QBPlectrumExtractor visitor(2);
  return filtered(nameOf(*this).extractPlectrumThird(), visitor);
}

QBSong* QBSong::toPicking() {
  const std::string derived = nameOf(*this).applyPicking();
  QBSong* copy = clone();
  copy->setTitle(derived);
  QBTabFilter(this, copy).filter();
  copy->buildTab();
  return copy;
}

QBSong* QBSong::pushDownStrings() {
  return rewritten<QBToneToNextString>(nameOf(*this).pushDownStrings());
}

QBSong* QBSong::toLeftHand() {
  return rewritten<QBLeftHandExtractorPello>(nameOf(*this).toLeftHand());
}

QBSong* QBSong::toRightHand() {
  return rewritten<QBRightHandExtractor>(nameOf(*this).toRightHand());
}

QBSong* QBSong::toLeftRightHand() {
  const std::string derived = nameOf(*this).toLeftRightHand();
  QBSong* left = toLeftHand();
  return withoutStep(left->toRightHand(), left, derived);
}

QBSong* QBSong::toRightLeftHand() {
  const std::string derived = nameOf(*this).toRightLeftHand();
  QBSong* right = toRightHand();
  return withoutStep(right->toLeftHand(), right, derived);
}

QBSong* QBSong::cleanChords() {
  const std::string derived = nameOf(*this).cleanChords();
  QBSong* cleaned = QBChordCleaner::clean(*this);
  cleaned->setAlbum(&requireAlbum());
  return finished(cleaned, derived);
}

QBSong* QBSong::findBestFingering() {
  BestFingering visitor;
  return filtered(nameOf(*this).findBestFingering(), visitor);
}

QBSong* QBSong::trimToPlayable() {
  const std::string derived = nameOf(*this).trimToPlayable();
  return finished(QBTabToneTrimmer(&requireAlbum(), this).trimmer(), derived);
}

}  // namespace korvel
