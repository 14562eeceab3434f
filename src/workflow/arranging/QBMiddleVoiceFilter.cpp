// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/QBMiddleVoiceFilter.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/DerivedSong.h"

namespace korvel {
namespace {

using Place = std::pair<int, int>;        // string, fret
using RunLengths = std::map<Place, int>;  // in chords

/// How long each tone of the chord sounds on, the chord counted in, given the same of the next one.
RunLengths runLengths(QBHold* hold, const RunLengths& next) {
  RunLengths lengths;
  if (!hold) return lengths;
  for (const QBTone* tone : hold->tones()) {
    const Place place(tone->string(), tone->fret());
    const auto goesOn = next.find(place);
    lengths[place] = 1 + (goesOn == next.end() ? 0 : goesOn->second);
  }
  return lengths;
}

}  // namespace

QBMiddleVoiceFilter::QBMiddleVoiceFilter(QBSong* song, int size)
    : m_source(song),
      m_melbrass(derivedByLetter(*song, "extractMelBrass")),
      m_middle(derivedByLetter(*song, "removeMelBrass")),
      m_size(size) {}

QBMiddleVoiceFilter::~QBMiddleVoiceFilter() = default;

QBSong* QBMiddleVoiceFilter::filter() {
  countSustains();
  keepMostSustained();
  m_target = mergeWithSong(*m_melbrass, *m_middle);
  m_target->setTitle(m_source->title() + "(mv)");
  QBAlbum& album = m_source->requireAlbum();
  album.deleteSong(m_melbrass);
  album.deleteSong(m_middle);
  return m_target;
}

/// A tone that the chord before has too counts the chords that it goes on for, its own included; a
/// tone that begins here counts nothing. Walked from the end, each chord needs only the next one.
/// On beats a tone counts its ticks.
void QBMiddleVoiceFilter::countSustains() {
  const auto& chords = m_middle->allChords();
  if (m_middle->isOnBeats()) {
    for (const auto& chord : chords)
      for (const auto& tone : tonesOf(*chord)) tone->m_hits = tone->ticks();
    return;
  }
  RunLengths next;
  for (std::size_t i = chords.size(); i-- > 1;) {
    RunLengths lengths = runLengths(chords[i]->hold(), next);
    for (const auto& [place, length] : lengths) {
      const auto [string, fret] = place;
      QBHold* before = chords[i - 1]->hold();
      if (before && before->findTone(string, fret))
        chords[i]->hold()->findTone(string, fret)->m_hits = length;
    }
    next = std::move(lengths);
  }
}

void QBMiddleVoiceFilter::keepMostSustained() {
  const auto kept = static_cast<std::size_t>(std::max(m_size, 0));
  for (const auto& chord : m_middle->allChords()) {
    Tones tones = tonesOf(*chord);
    std::ranges::stable_sort(tones, std::greater(), [](const auto& tone) { return tone->m_hits; });
    if (kept < tones.size()) deleteTones(*chord, std::span(tones).subspan(kept));
  }
}

}  // namespace korvel
