// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "model/book/QBHarmony.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kFewestTones = 2;

}  // namespace

QBAlbum* QBTabMgr::findAlbumByName(const std::string& name) const {
  const auto found =
      std::ranges::find_if(m_albums, [&](const auto& album) { return album->name() == name; });
  return found == m_albums.end() ? nullptr : found->get();
}

QBTuning* QBTabMgr::findTuningByOrder(int order) const {
  const auto found =
      std::ranges::find_if(m_tunings, [&](const auto& tuning) { return tuning->order() == order; });
  return found == m_tunings.end() ? nullptr : found->get();
}

// Harmonies stand by falling order and ties go to the later one, so that the smaller order wins. A
// harmony that the chord already has keeps out those of a larger order.
QBHarmony* QBTabMgr::findHarmonyByChord(QBChord* chord) {
  const unsigned sounding = chord->hold() ? chord->hold()->pitchClasses() : 0;
  int best = 0;
  for (const auto& harmony : m_harmonies) {
    const QBHarmony* known = chord->harmony();
    if (known && known->order() < harmony->order()) continue;
    if (static_cast<int>(harmony->allTones().size()) < best) continue;
    for (int root = 0; root < kNotesPerOctave; ++root) {
      const int score = harmony->countTones(root, sounding);
      if (score < kFewestTones || score < best) continue;
      chord->setHarmony(harmony);
      chord->setBaseTone(root);
      best = score;
    }
  }
  return chord->harmony();
}

QBRightHandPattern* QBTabMgr::findPatternByChord(QBChord* previous, QBChord* chord) {
  const QBRightHandPattern* before = previous ? previous->readPattern(nullptr) : nullptr;
  QBRightHandPattern* best = nullptr;
  int bestWeight = -1;
  for (const auto& pattern : m_patterns) {
    if (!pattern->matches(*chord) || (before && !pattern->isPlayable(*before))) continue;
    if (pattern->weight() <= bestWeight) continue;
    best = pattern;
    bestWeight = pattern->weight();
  }
  return best;
}

}  // namespace korvel
