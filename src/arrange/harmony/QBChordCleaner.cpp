// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBChordCleaner.h"

#include <algorithm>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

/// The tones of a chord that its cleaners do not believe; judged all together, before any goes.
Tones doubtful(QBChord& chord) {
  Tones tones = tonesOf(chord);
  std::erase_if(tones, [&](const auto& tone) {
    const auto cleaner = QBChordCleaner::ofString(tone->string(), &chord);
    return !cleaner || cleaner->matches(tone->string(), tone->fret());
  });
  return tones;
}

}  // namespace

QBChordCleaner::QBChordCleaner(QBChord* chord) : m_chord(chord) {}

QBChordCleaner::~QBChordCleaner() = default;

bool QBChordCleaner::matches(int string, int fret) const {
  const auto found = std::ranges::count_if(
      m_rules, [&](const QBCleanRule& rule) { return rule.matches(*m_chord, string, fret); });
  return found >= static_cast<std::ptrdiff_t>(m_rules.size() / 2);
}

std::unique_ptr<QBChordCleaner> QBChordCleaner::ofString(int string, QBChord* chord) {
  switch (string) {
    case 0:
      return std::make_unique<QBChordCleanerLowerE>(chord);
    case 1:
      return std::make_unique<QBChordCleanerA>(chord);
    case 2:
      return std::make_unique<QBChordCleanerD>(chord);
    case 3:
      return std::make_unique<QBChordCleanerG>(chord);
    case 4:
      return std::make_unique<QBChordCleanerB>(chord);
    case 5:
      return std::make_unique<QBChordCleanerHighE>(chord);
    default:
      return nullptr;
  }
}

QBSong* QBChordCleaner::clean(QBSong& source) {
  QBTabMgr& db = QBTabMgr::of(source);
  QBSong* cleaned = db.createSong("Cleaned", source.tuning(), db.selectedInstrument(), nullptr);
  for (const auto& chord : source.allChords()) {
    QBChord* copy = chord->clone(cleaned);
    deleteTones(*copy, doubtful(*copy));
    if (tonesOf(*copy).empty()) cleaned->deleteChord(copy);
  }
  return cleaned;
}

// Octave, fifth and third of each string's note, brought down to the lower strings.

// The fifth two frets up on A, the octave two frets up on D, the third one fret up on G.
void QBChordCleanerHighE::buildRules() { m_rules = {{1, -17}, {2, -12}, {3, -8}}; }

// The same grip one string lower: fifth on E, octave on A, third on D.
void QBChordCleanerB::buildRules() { m_rules = {{0, -17}, {1, -12}, {2, -8}}; }

// The octave three frets up on E, the third two frets up on A, the fifth at the same fret on D.
void QBChordCleanerG::buildRules() { m_rules = {{0, -12}, {1, -8}, {2, -5}}; }

// The octave would lie below E for low frets: the third two frets up on E, the fifth on A.
void QBChordCleanerD::buildRules() { m_rules = {{0, -8}, {1, -5}}; }

// Only the fifth has a string to lie on: the same fret on E.
void QBChordCleanerA::buildRules() { m_rules = {{0, -5}}; }

// No string is lower: every tone is believed.
void QBChordCleanerLowerE::buildRules() { m_rules = {}; }

}  // namespace korvel
