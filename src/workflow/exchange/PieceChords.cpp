// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceChords.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "exchange/Piece.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

constexpr double kQuartersOfDottedBeat = 1.5;

}  // namespace

PieceChords::PieceChords(const QBTabMgr& db, const exchange::Piece& piece,
                         const exchange::Track& track, const TrackNotes& notes)
    : m_bars(piece),
      m_time(piece),
      m_notes(track, notes.notes(), m_bars),
      m_names(db, piece, track, notes, m_bars),
      m_swing(piece.swing),
      m_at(m_bars.begin()) {
  tellTempo();
  write();
}

PieceChords::~PieceChords() = default;

LeftOut PieceChords::left() const {
  LeftOut all = m_notes.left();
  for (const auto& [what, count] : m_names.left()) all[what] += count;
  return all;
}

// ---- writing

/// That of the bar in the middle, of all by their tempo, each in its own beats.
void PieceChords::tellTempo() {
  std::vector<double> tempos;
  const auto& bars = m_bars.bars();
  for (const PieceBars::Bar& bar : bars)
    tempos.push_back(m_time.tempoAt(static_cast<double>(bar.at)) /
                     (bar.isCompound() ? kQuartersOfDottedBeat : 1));
  const auto middle = tempos.begin() + static_cast<std::ptrdiff_t>(tempos.size() / 2);
  std::ranges::nth_element(tempos, middle);
  const bool compound = bars.front().isCompound();
  m_tempo = *middle;
  m_isSteady = m_time.isSteady() && std::ranges::all_of(bars, [&](const PieceBars::Bar& bar) {
                 return bar.isCompound() == compound;
               });
}

void PieceChords::write() {
  const std::span<const PlacedNote> notes(m_notes.all());
  for (std::size_t first = 0; first < notes.size();) {
    std::size_t end = first + 1;
    while (end < notes.size() && notes[end].tick == notes[first].tick) ++end;
    strike(notes.subspan(first, end - first), end < notes.size() ? notes[end].tick : m_bars.end());
    first = end;
  }
  fillTo(m_bars.end());
}

void PieceChords::strike(std::span<const PlacedNote> together, int next) {
  fillTo(together.front().tick);
  const int shortest = std::ranges::min_element(together, {}, &PlacedNote::end)->end;
  WrittenChord& chord = addChord(std::min(shortest, next));
  for (const PlacedNote& note : together)
    chord.tones.push_back({note.string, note.fret, note.amplitude, note.end - note.tick});
  std::ranges::stable_sort(chord.tones, std::greater(), &WrittenTone::amplitude);
}

void PieceChords::fillTo(int tick) {
  while (m_at < tick) addChord(tick);
}

/// None goes beyond its bar, or beyond the beginning of a name that the file has.
WrittenChord& PieceChords::addChord(int end) {
  const auto& names = m_names.all();
  while (m_named < names.size() && names[m_named].tick <= m_at) ++m_named;
  const std::size_t bar = m_bars.barAt(m_at);
  end = std::min(end, m_bars.bars()[bar].end());
  if (m_names.areWritten() && m_named < names.size()) end = std::min(end, names[m_named].tick);
  WrittenChord chord;
  chord.tick = m_at;
  chord.ticks = end - m_at;
  chord.bar = static_cast<int>(bar);
  chord.beatTime = std::llround(m_time.secondsOf(m_bars.grainsOf(m_at)) * platform::kSampleRate);
  chord.onset = chord.beatTime;
  chord.span = static_cast<int>(m_named) - 1;
  m_at = end;
  return m_chords.emplace_back(std::move(chord));
}

// ---- making

QBChord* PieceChords::make(QBSong* song) {
  if (m_next == 0) begin(*song);
  const WrittenChord& written = m_chords.at(m_next++);
  const PieceBars::Bar& bar = m_bars.bars()[static_cast<std::size_t>(written.bar)];
  const int from = written.tick - bar.end();
  QBChord* chord = QBTabMgr::of(*song).createChord(song, nullptr, written.onset);
  chord->setTicks(written.ticks);
  if (!m_isSteady) chord->setBeatTime(written.beatTime);
  chord->setDuration(sixteenthsBetween(from, from + written.ticks, bar.isCompound()));
  for (const WrittenTone& tone : written.tones) {
    QBTone* made = chord->hold()->applyTone(tone.string, tone.fret, tone.amplitude);
    made->setTicks(tone.ticks);
    made->setDuration(sixteenthsAlone(from, from + tone.ticks, bar.isCompound()));
  }
  layIntoMeasure(*song, written, *chord);
  if (written.span < 0) return chord;
  if (const auto& name = m_names.all()[static_cast<std::size_t>(written.span)].name) {
    chord->setHarmony(name->harmony);
    chord->setBaseTone(name->baseTone);
  }
  return chord;
}

void PieceChords::begin(QBSong& song) const {
  song.setTempo(m_tempo);
  if (m_swing) song.setSwing(*m_swing);
  if (m_names.key()) song.setKey(*m_names.key());
}

void PieceChords::layIntoMeasure(QBSong& song, const WrittenChord& written, QBChord& chord) {
  const int position = written.bar + 1;
  if (!m_measure || m_measure->position() != position) {
    const TimeSignature signature = m_bars.bars()[static_cast<std::size_t>(written.bar)].signature;
    m_measure = QBTabMgr::of(song).createMeasure(&song, signature.beat, signature.beattype);
    m_measure->setPosition(position);
  }
  m_measure->addChord(&chord);
}

}  // namespace korvel
