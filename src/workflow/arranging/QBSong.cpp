// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include <algorithm>
#include <stdexcept>

#include "arrange/chords/QBChordExtractor.h"
#include "arrange/chords/QBChordVisitor.h"
#include "arrange/harmony/QBChordTransposer.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {
namespace {

constexpr std::int64_t kTimestampOfMadeChords = 2;

}  // namespace

// ---- order and lookup

const std::vector<platform::Ref<QBChord>>& QBSong::allChords() {
  if (!m_sortedChords) {
    m_sortedChords = chords().snapshot();
    std::ranges::stable_sort(*m_sortedChords, {},
                             [](const auto& chord) { return chord->position(); });
  }
  return *m_sortedChords;
}

std::vector<platform::Ref<QBMeasure>> QBSong::allMeasures() const {
  auto sorted = measures().snapshot();
  std::ranges::stable_sort(sorted, {}, [](const auto& measure) { return measure->position(); });
  return sorted;
}

std::vector<platform::Ref<QBChord>> QBSong::chordsInRange(int from, int to) {
  const auto& all = allChords();
  const int end = std::min(to, static_cast<int>(all.size()));
  const int begin = std::max(from, 0);
  if (end <= begin) return {};
  return {all.begin() + begin, all.begin() + end};
}

QBChord* QBSong::createChord() {
  return QBTabMgr::db().createChord(this, nullptr, kTimestampOfMadeChords);
}

void QBSong::deleteChord(QBChord* chord) {
  chord->setSong(nullptr);
  QBTabMgr::db().deleteChord(chord);
}

void QBSong::setChordInLoop(QBChord* chord) {
  const QBChord* from = fromChord();
  const QBChord* to = toChord();
  const int position = chord->position();
  if (!from || position <= from->position())
    setFromChord(chord);
  else if (!to || position >= to->position())
    setToChord(chord);
  else if (position - from->position() >= to->position() - position)
    setToChord(chord);  // a tie moves the end of the loop
  else
    setFromChord(chord);
}

int QBSong::lookupGroupSize(int index) {
  const auto& all = allChords();
  const auto durationAt = [&](int i) { return all.at(static_cast<std::size_t>(i))->duration(); };
  int equals = 0;
  while (index + equals < static_cast<int>(all.size()) - 1 &&
         durationAt(index + equals + 1) == durationAt(index + equals)) {
    if (++equals == 3) return 4;
  }
  // Three equal durations make a group of two, by design.
  return equals == 2 ? 2 : equals + 1;
}

void QBSong::iterate(QBChordVisitor& visitor) {
  visitor.setM_album(album());
  const auto& all = allChords();
  for (std::size_t i = 0; i < all.size(); ++i) {
    visitor.setM_index(static_cast<int>(i));
    visitor.execute(i > 0 ? all[i - 1].get() : nullptr, all[i],
                    i + 1 < all.size() ? all[i + 1].get() : nullptr);
  }
}

void QBSong::buildTab() { setTabulature(toString()); }

// ---- copies and combinations

QBSong* QBSong::cloneToAlbum(QBAlbum* target) {
  QBTabMgr& db = QBTabMgr::db();
  QBSong* copy = db.createSong(title(), tuning(), db.selectedInstrument(), target);
  for (const auto& chord : allChords()) chord->clone(copy);
  return copy;
}

QBSong* QBSong::clone() { return cloneToAlbum(album()); }

QBSong* QBSong::mergeWithSong(QBSong& other) {
  QBSong& longer = allChords().size() >= other.allChords().size() ? *this : other;
  QBSong* merged = longer.clone();
  merged->setTitle(merged->title() + "(mrg)");
  // The tones always come from the argument: merged with a longer song, that song's clone takes its
  // own tones, as intended.
  const auto& into = merged->allChords();
  const auto& from = other.allChords();
  for (std::size_t i = 0; i < from.size(); ++i) into[i]->mergeWith(*from[i]);
  merged->buildTab();
  return merged;
}

QBSong* QBSong::extractPartOfSong(int from, int to) {
  QBAlbum& home = requireAlbum();
  QBSong* part = home.createSong(QBNameMgr(&home, title()).extractPartChords(from, to));
  part->setTuning(tuning());
  QBChordExtractor visitor(from, to, part);
  iterate(visitor);
  part->buildTab();
  return part;
}

QBSong* QBSong::transposed(const std::string& derivedTitle, int offset) {
  QBTabMgr& db = QBTabMgr::db();
  QBInstrument* instrument = db.selectedInstrument();
  QBSong* made = db.createSong(derivedTitle, tuning(), instrument, &requireAlbum());
  for (const auto& chord : allChords()) {
    QBChordTransposer transposer(chord, instrument, 0, offset);
    transposer.transpose()->clone(made);
    transposer.dispose();
  }
  made->buildTab();
  return made;
}

QBSong* QBSong::transformUp(int steps) {
  return transposed(QBNameMgr(&requireAlbum(), title()).transformUp(steps), steps);
}

QBSong* QBSong::transformDown(int steps) {
  return transposed(QBNameMgr(&requireAlbum(), title()).transformDown(steps), -steps);
}

QBAlbum& QBSong::requireAlbum() const {
  if (!album()) throw std::logic_error("the song \"" + title() + "\" is in no album");
  return *album();
}

}  // namespace korvel
