// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBHold.h"

#include <algorithm>

#include "model/instruments/PlaceKey.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr int kLastSearchedFret = 11;
constexpr int kBeyondAnyTone = 1000;

std::string keyOfTone(const QBTone& tone) { return keyOf(tone.string(), tone.fret()); }

}  // namespace

platform::EntityDescription QBHold::describe() {
  return platform::EntityBuilder<QBHold>("QBHold")
      .toOne<&QBHold::m_chord>("chord", "QBChord", "hold")
      .toMany<&QBHold::m_tones>("tones", "QBTone", "hold", platform::Loading::ownerOnly, true)
      .build();
}

QBHold::QBHold() = default;

QBHold::~QBHold() = default;

QBChord* QBHold::chord() const { return target(m_chord); }

void QBHold::setChord(QBChord* value) { relate(m_chord, value); }

platform::Members<QBTone> QBHold::tones() const { return members(m_tones); }

void QBHold::forgetCaches() {
  m_sortedTones.reset();
  m_isBarre = Barre::unknown;
  if (QBChord* owner = chord()) owner->forgetCaches();
}

std::map<std::string, platform::Ref<QBTone>>& QBHold::readSortedTones() {
  if (!m_sortedTones) {
    m_sortedTones.emplace();
    for (QBTone* tone : tones()) m_sortedTones->insert_or_assign(keyOfTone(*tone), tone);
  }
  return *m_sortedTones;
}

// ---- looking up

QBTone* QBHold::findTone(int string, int fret) {
  const auto& index = readSortedTones();
  const auto found = index.find(keyOf(string, fret));
  return found == index.end() ? nullptr : found->second.get();
}

QBTone* QBHold::findToneByString(int string) const {
  for (QBTone* tone : tones())
    if (tone->string() == string) return tone;
  return nullptr;
}

std::vector<platform::Ref<QBTone>> QBHold::allTonesOfString(int string) const {
  std::vector<platform::Ref<QBTone>> found;
  for (QBTone* tone : tones())
    if (tone->string() == string) found.emplace_back(tone);
  return found;
}

QBTone* QBHold::findToneFrom(int string, int fret) {
  for (; fret <= kLastSearchedFret; ++fret)
    if (QBTone* tone = findTone(string, fret)) return tone;
  return nullptr;
}

bool QBHold::findNote(int note) const {
  for (const QBTone* tone : tones())
    if (tone->isNote(note)) return true;
  return false;
}

unsigned QBHold::pitchClasses() const {
  const OpenStrings strings = openStringsOf(*this);
  unsigned notes = 0;
  for (const QBTone* tone : tones())
    notes |= 1U << pitchClass(strings.note(tone->string(), tone->fret()));
  return notes;
}

QBTone* QBHold::findLargeNote(int note) const {
  for (QBTone* tone : tones())
    if (tone->isLargeNote(note)) return tone;
  return nullptr;
}

QBTone* QBHold::findMelodyTone() const {
  const OpenStrings strings = openStringsOf(*this);
  QBTone* best = nullptr;
  int highest = std::min(strings.lowestNote() - 1, 0);
  for (QBTone* tone : tones()) {
    const int note = strings.note(tone->string(), tone->fret());
    if (note <= highest) continue;
    best = tone;
    highest = note;
  }
  return best;
}

QBTone* QBHold::findBrassTone() const {
  const OpenStrings strings = openStringsOf(*this);
  QBTone* best = nullptr;
  int lowest = kBeyondAnyTone;
  for (QBTone* tone : tones()) {
    const int note = strings.note(tone->string(), tone->fret());
    if (note >= lowest) continue;
    best = tone;
    lowest = note;
  }
  return best;
}

// ---- changing

QBTone* QBHold::addTone(int string, int fret, double amp) {
  if (QBTone* known = findTone(string, fret)) return known;
  // 0 is no lowest fret yet, so that a fretted tone after an open string counts.
  if (fret != 0 && (readSortedTones().empty() || m_minFret == 0 || m_minFret > fret))
    m_minFret = fret;
  QBTone* tone = QBTabMgr::of(*this).createTone(this, string, fret, 0, amp);
  readSortedTones().insert_or_assign(keyOf(string, fret), tone);
  m_maxFret = std::max(m_maxFret, fret);
  return tone;
}

QBTone* QBHold::applyTone(int string, int fret, double amp) {
  // Unlike addTone, a lowest fret of 0 stays: holds filled here alone span from the nut.
  if (fret != 0 && m_minFret > fret) m_minFret = fret;
  m_maxFret = std::max(m_maxFret, fret);
  QBTone* known = findToneByString(string);
  if (!known) return QBTabMgr::of(*this).createTone(this, string, fret, 0, amp);
  if (known->fret() > fret) {
    known->setFret(fret);
    known->setAmp(amp);
  }
  return known;
}

QBTone* QBHold::setFretOfString(int string, int fret) {
  QBTone* tone = findToneByString(string);
  if (!tone) tone = addTone(string, fret, 0.0);
  tone->setFret(fret);
  return tone;
}

void QBHold::deleteTone(QBTone* tone) {
  // An index that was never asked for is made from the tones that are left, when it is.
  if (m_sortedTones) m_sortedTones->erase(keyOfTone(*tone));
  QBTabMgr::of(*this).deleteTone(tone);
}

void QBHold::deleteToneOfString(int string) {
  if (QBTone* tone = findToneByString(string)) deleteTone(tone);
}

bool QBHold::removeTonesByNote(int note) {
  bool removed = false;
  for (const auto& tone : tones().snapshot()) {
    if (!tone->isNote(note)) continue;
    deleteTone(tone);
    removed = true;
  }
  return removed;
}

QBHold* QBHold::clone(QBChord* chord) {
  QBTabMgr& db = QBTabMgr::of(*this);
  QBHold* copy = db.createHold();
  for (const QBTone* tone : tones()) tone->clone(copy);
  QBHold* replaced = chord->hold();
  chord->setHold(copy);
  if (replaced && replaced->tones().empty()) db.deleteHold(replaced);
  copy->m_minFret = m_minFret;
  copy->m_maxFret = m_maxFret;
  return copy;
}

}  // namespace korvel
