// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/ChordsOnBeats.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "analysis/beats/SpanNames.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "music/Ticks.h"

namespace korvel {

ChordsOnBeats::ChordsOnBeats(const HeardSound& heard)
    : m_tempo(heard.rhythm.reading.tempo()),
      m_reading(heard.rhythm.reading),
      m_chords(writtenChords(heard.notes, m_reading)) {
  m_reading.events.clear();
  m_reading.notes.clear();
}

ChordsOnBeats::ChordsOnBeats(const HeardSound& heard, const HeardVoice& voice)
    : m_tempo(heard.rhythm.reading.tempo()), m_reading(heard.rhythm.reading) {
  const auto& all = heard.rhythm.reading.events;
  const std::optional<int> from =
      all.empty() ? std::nullopt : std::optional(all.front().place.tick);
  m_reading.events = voice.events;
  m_reading.notes = voice.places;
  m_chords = writtenChords(voice.notes, m_reading, from);
  m_reading.events.clear();
  m_reading.notes.clear();
}

ChordsOnBeats::~ChordsOnBeats() = default;

QBChord* ChordsOnBeats::make(QBSong* song) {
  if (m_next == 0) begin(*song);
  const WrittenChord& written = m_chords.at(m_next++);
  QBChord* chord = QBTabMgr::of(*song).createChord(song, nullptr, written.onset);
  const bool compound = m_reading.metre.compound;
  chord->setTicks(written.ticks);
  chord->setBeatTime(written.beatTime);
  chord->setDuration(sixteenthsBetween(written.tick, written.tick + written.ticks, compound));
  for (const WrittenTone& tone : written.tones) {
    QBTone* made = chord->hold()->applyTone(tone.string, tone.fret, tone.amplitude);
    made->setTicks(tone.ticks);
    made->setDuration(sixteenthsAlone(written.tick, written.tick + tone.ticks, compound));
  }
  layIntoMeasure(*song, written, *chord);
  name(written, *chord);
  return chord;
}

void ChordsOnBeats::begin(QBSong& song) const {
  song.setTempo(m_tempo);
  if (m_reading.feel == rhythm::Feel::swing) song.setSwing(m_reading.swingRatio);
  if (m_reading.key)
    song.setKey(m_reading.key->tonic + (m_reading.key->minor ? kNotesPerOctave : 0));
}

void ChordsOnBeats::layIntoMeasure(QBSong& song, const WrittenChord& written, QBChord& chord) {
  const int position = written.bar + 1;
  if (!m_measure || m_measure->position() != position) {
    const TimeSignature signature = signatureOf(m_reading.metre);
    m_measure = QBTabMgr::of(song).createMeasure(&song, signature.beat, signature.beattype);
    m_measure->setPosition(position);
  }
  m_measure->addChord(&chord);
}

void ChordsOnBeats::name(const WrittenChord& written, QBChord& chord) const {
  if (written.span < 0) return;
  const auto span = static_cast<std::size_t>(written.span);
  const rhythm::ChordSpan& named = m_reading.chords[span];
  if (QBHarmony* harmony = harmonyOf(QBTabMgr::of(chord), named)) {
    chord.setHarmony(harmony);
    chord.setBaseTone(named.root);
  }
}

}  // namespace korvel
