// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBLeftHandExtractorPello.h"

#include <algorithm>
#include <exception>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"

namespace korvel {
namespace {

constexpr std::size_t kTonesOfSmallChord = 2;
bool isSmall(const QBChord& chord) { return tonesOf(chord).size() <= kTonesOfSmallChord; }

}  // namespace

/// The scratch song, for as long as one chord is looked at.
class QBLeftHandExtractorPello::Worker {
 public:
  explicit Worker(QBLeftHandExtractorPello& extractor)
      : m_extractor(extractor), m_album(&extractor.target()->requireAlbum()) {
    m_extractor.m_worker = m_album->createSong("Varnholm");
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    m_extractor.m_list.clear();
    try {
      m_album->deleteSong(m_extractor.m_worker);
    } catch (const std::exception&) {  // the store has failed, and says so at the next save
    }
    m_extractor.m_worker = nullptr;
  }

 private:
  QBLeftHandExtractorPello& m_extractor;
  platform::Ref<QBAlbum> m_album;
};

QBLeftHandExtractorPello::QBLeftHandExtractorPello(QBSong* target) : QBLeftHandExtractor(target) {}

QBLeftHandExtractorPello::~QBLeftHandExtractorPello() = default;

void QBLeftHandExtractorPello::execute(QBChord*, QBChord* current, QBChord*) {
  if (isSmall(*current)) {
    current->clone(target());
    return;
  }
  const Worker worker(*this);
  for (int string = 0; string < kStrings; ++string) {
    for (const auto& tone : current->hold()->allTonesOfString(string)) {
      applyTone(*tone);
      createChord(*tone);
    }
  }
  QBChord* chosen = evaluate();
  QBChord* made = (chosen ? chosen : current)->clone(target());
  if (chosen) readHarmony(*made);
}

/// The candidates go on with the tone; the shorter runs are of no use any more, so each grows in
/// place.
void QBLeftHandExtractorPello::applyTone(const QBTone& tone) {
  for (const auto& candidate : m_list)
    candidate->hold()->addTone(tone.string(), tone.fret(), tone.amp());
}

void QBLeftHandExtractorPello::createChord(const QBTone& tone) {
  const platform::Ref<QBChord> candidate = m_worker->createChord();
  candidate->hold()->addTone(tone.string(), tone.fret(), tone.amp());
  m_list.push_back(candidate);
}

/// Equal weights leave the longest run in front.
QBChord* QBLeftHandExtractorPello::evaluate() {
  std::erase_if(m_list, [](const auto& candidate) { return isSmall(*candidate); });
  for (const auto& candidate : m_list) candidate->setLeftpattern(findPatternByChord(*candidate));
  const auto lightest = std::ranges::min_element(
      m_list, {}, [](const auto& candidate) { return candidate->weight(); });
  return lightest == m_list.end() ? nullptr : lightest->get();
}

}  // namespace korvel
