// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include <algorithm>
#include <stdexcept>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBChordVisitor.h"
#include "model/songs/QBMeasure.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr std::int64_t kTimestampOfMadeChords = 2;

}  // namespace

platform::EntityDescription QBSong::describe() {
  return platform::EntityBuilder<QBSong>("QBSong")
      .attribute<&QBSong::m_title>("title")
      .attribute<&QBSong::m_instrument>("instrument")
      .attribute<&QBSong::m_avgrate>("avgrate")
      .attribute<&QBSong::m_tempoRate>("tempoRate")
      .attribute<&QBSong::m_tabulature>("tabulature", platform::Fetch::onDemand)
      .attribute<&QBSong::m_descr>("descr")
      .attribute<&QBSong::m_unheard>("unheard")
      .attribute<&QBSong::m_tempo>("tempo")
      .attribute<&QBSong::m_swing>("swing")
      .attribute<&QBSong::m_key>("key")
      .attribute<&QBSong::m_corrections>("corrections", platform::Fetch::onDemand)
      .attribute<&QBSong::m_practice>("practice")
      .attribute<&QBSong::m_artist>("artist")
      .attribute<&QBSong::m_capo>("capo")
      .attribute<&QBSong::m_lyrics>("lyrics", platform::Fetch::onDemand)
      .toOne<&QBSong::m_recording>("recording", "SongRecording", "songs")
      .toOne<&QBSong::m_album>("album", "QBAlbum", "songs")
      .toOne<&QBSong::m_tuning>("tuning", "QBTuning", "songs")
      .toOne<&QBSong::m_fromChord>("fromChord", "QBChord")
      .toOne<&QBSong::m_toChord>("toChord", "QBChord")
      .toMany<&QBSong::m_chords>("chords", "QBChord", "song")
      .toMany<&QBSong::m_measures>("measures", "QBMeasure", "song")
      .build();
}

QBSong::QBSong() = default;

QBSong::~QBSong() = default;

SongRecording* QBSong::recording() const { return target(m_recording); }

void QBSong::setRecording(SongRecording* value) { relate(m_recording, value); }

void QBSong::takeRhythmOf(const QBSong& other) {
  if (other.isOnBeats()) setTempo(other.tempo());
  if (other.isSwung()) setSwing(other.swing());
  if (other.hasKey()) setKey(other.key());
  if (other.hasCapo()) setCapo(other.capo());
  setRecording(other.recording());
  if (other.hasCorrections()) setCorrections(other.corrections());
}

void QBSong::takeWordsOf(const QBSong& other) {
  if (!other.artist().empty()) setArtist(other.artist());
  if (!other.lyrics().empty()) setLyrics(other.lyrics());
}

void QBSong::clearRhythm() {
  unset(m_tempo);
  unset(m_swing);
  unset(m_key);
}

QBAlbum* QBSong::album() const { return target(m_album); }

void QBSong::setAlbum(QBAlbum* value) { relate(m_album, value); }

QBTuning* QBSong::tuning() const { return target(m_tuning); }

void QBSong::setTuning(QBTuning* value) { relate(m_tuning, value); }

QBChord* QBSong::fromChord() const { return target(m_fromChord); }

void QBSong::setFromChord(QBChord* value) { relate(m_fromChord, value); }

QBChord* QBSong::toChord() const { return target(m_toChord); }

void QBSong::setToChord(QBChord* value) { relate(m_toChord, value); }

platform::Members<QBChord> QBSong::chords() const { return members(m_chords); }

platform::Members<QBMeasure> QBSong::measures() const { return members(m_measures); }

void QBSong::forgetCaches() {
  if (!m_sortedChords) return;
  for (const auto& chord : *m_sortedChords) chord->m_xPosInMatrix = chord->m_yPosInMatrix = 0;
  m_sortedChords.reset();
}

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
  return QBTabMgr::of(*this).createChord(this, nullptr, kTimestampOfMadeChords);
}

void QBSong::deleteChord(QBChord* chord) {
  chord->setSong(nullptr);
  QBTabMgr::of(*this).deleteChord(chord);
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
  visitor.setM_instrument(QBTabMgr::of(*this).selectedInstrument());
  const auto& all = allChords();
  for (std::size_t i = 0; i < all.size(); ++i) {
    visitor.setM_index(static_cast<int>(i));
    visitor.execute(i > 0 ? all[i - 1].get() : nullptr, all[i],
                    i + 1 < all.size() ? all[i + 1].get() : nullptr);
  }
}

// ---- copies

QBSong* QBSong::cloneToAlbum(QBAlbum* target) {
  QBTabMgr& db = QBTabMgr::of(*this);
  QBSong* copy = db.createSong(title(), tuning(), db.selectedInstrument(), target);
  copy->takeRhythmOf(*this);
  copy->takeWordsOf(*this);
  for (const auto& chord : allChords()) chord->clone(copy);
  return copy;
}

QBSong* QBSong::clone() { return cloneToAlbum(album()); }

QBAlbum& QBSong::requireAlbum() const {
  if (!album()) throw std::logic_error("the song \"" + title() + "\" is in no album");
  return *album();
}

}  // namespace korvel
