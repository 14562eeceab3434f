// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/QBTabBuilder.h"

#include <algorithm>
#include <tuple>

#include "arrange/hands/PatternOfChord.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {
namespace {

Tones fromHighestString(const QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::ranges::stable_sort(
      tones, {}, [](const auto& tone) { return std::tuple(-tone->string(), tone->fret()); });
  return tones;
}

std::vector<int> sortedNotes(const QBChord& chord) {
  std::vector<int> notes;
  for (const auto& tone : tonesOf(chord)) notes.push_back(largeToneOf(*tone));
  std::ranges::sort(notes);
  return notes;
}

int patternWeight(QBChord& chord) {
  const QBRightHandPattern* pattern = readPattern(chord, nullptr);
  return pattern ? pattern->weight() : 0;
}

/// Not an order, as intended: of two candidates the lower one wins when it is asked about, unless
/// it is wider, but never the higher one. The position that the
/// chord has, which lies lowest, is found last, so it is the later one that is asked about.
bool precedes(QBHold& hold, QBHold& other) {
  if (hold.m_minFret != other.m_minFret)
    return hold.m_minFret < other.m_minFret && hold.sizeOfHold() <= other.sizeOfHold();
  const bool barre = hold.isBarre();
  return other.isBarre() && !barre;
}

}  // namespace

QBTabBuilder::QBTabBuilder(QBChord* source, QBInstrument* instrument, int minFret, int offset)
    : m_source(source),
      m_lowestFret(minFret),
      m_toneOffset(offset),
      m_scratch(QBTabMgr::of(*source), "Builder", "TabBuilder", tuningOf(source->song()),
                instrument) {}

QBTabBuilder::~QBTabBuilder() = default;

QBChord* QBTabBuilder::build() {
  collect();
  return best();
}

void QBTabBuilder::collect() {
  for (const auto& tone : fromHighestString(*m_source))
    findPositionsFrom(tone->string(), tone->fret(), largeToneOf(*tone));
}

// A scan, because the comparison is not transitive and sorting by it has no defined outcome.
QBChord* QBTabBuilder::best() const {
  QBChord* best = nullptr;
  int bestWeight = 0;
  for (const auto& candidate : m_candidates) {
    const int weight = patternWeight(*candidate);
    if (best && weight < bestWeight) continue;
    if (best && weight == bestWeight && !precedes(*candidate->hold(), *best->hold())) continue;
    best = candidate;
    bestWeight = weight;
  }
  return best;
}

void QBTabBuilder::findPositionsFrom(int string, int fret, int largeTone) {
  std::vector<platform::Ref<QBChord>> found;
  const auto offer = [&](int onString, int atFret) {
    addToAllChords(onString, atFret);
    if (m_candidates.empty()) found.emplace_back(createChord(onString, atFret));
  };
  const OpenStrings strings = openStringsOf(*m_source);
  for (int lower = string - 1; lower >= 0; --lower) {
    const int atFret = strings.fret(lower, largeTone);
    if (atFret >= 0 && atFret < kFretsToMoveTo) offer(lower, atFret);
  }
  offer(string, fret);
  m_candidates.insert(m_candidates.end(), found.begin(), found.end());
}

void QBTabBuilder::addToAllChords(int string, int fret) {
  for (const auto& candidate : m_candidates)
    if (isPlayable(*candidate, string, fret)) candidate->hold()->addTone(string, fret, 0.0);
}

QBChord* QBTabBuilder::createChord(int string, int fret) {
  QBChord* chord = QBTabMgr::of(*m_source).createChord(m_scratch.song(), m_source->m_fft(),
                                                       m_source->timestamp());
  chord->hold()->addTone(string, fret, 0.0);
  chord->setHarmony(m_source->harmony());
  if (m_source->hasBaseTone()) chord->setBaseTone(m_source->baseTone());
  chord->setDuration(m_source->duration());
  return chord;
}

bool QBTabBuilder::isPlayable(const QBChord& chord, int string, int) {
  return !chord.hold()->findToneByString(string);
}

// ---- narrowing down

void QBTabBuilder::keepComplete() {
  const std::vector<int> needed = sortedNotes(*m_source);
  std::erase_if(m_candidates, [&](const auto& candidate) {
    return !std::ranges::includes(sortedNotes(*candidate), needed);
  });
}

void QBTabBuilder::cleanUp() {
  const QBHold* hold = m_source->hold();
  const std::string own = hold ? hold->toStringClean() : "";
  const std::size_t tones = hold ? hold->tones().size() : 0;
  std::erase_if(m_candidates, [&](const auto& candidate) {
    return candidate->hold()->tones().size() < tones ||
           !own.ends_with(candidate->hold()->toStringClean());
  });
}

}  // namespace korvel
