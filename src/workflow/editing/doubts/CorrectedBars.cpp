// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/CorrectedBars.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/ChordTicks.h"
#include "workflow/editing/doubts/StringChoice.h"

namespace korvel {
namespace {

/// A third of a beat is written where it is so many ticks nearer than a sixteenth.
constexpr double kNearerThird = 0.6;
constexpr int kTicksOfThird = kTicksOfBeat / 3;

double struckAt(const QBChord& chord) {
  return static_cast<double>(chord.timestamp()) / platform::kSampleRate;
}

int roundedTo(double tick, int unit) { return static_cast<int>(std::lround(tick / unit)) * unit; }

}  // namespace

CorrectedBars::CorrectedBars(QBTabMgr& db, QBSong& song)
    : m_db(db), m_song(song), m_time(song), m_before(song.allChords()), m_bars(db, song) {
  const QBMeasure* bar = m_before.empty() ? nullptr : m_before.front()->measure();
  m_isCompound = bar && isCompound(bar->beat(), bar->beattype());
}

void CorrectedBars::remove(const SongNote& note) {
  QBChord& chord = *m_before.at(static_cast<std::size_t>(note.chord));
  QBTone* tone = chord.hold() ? chord.hold()->findToneByString(note.note.string) : nullptr;
  if (!tone) return;
  const int ticks = ticksOfTone(*tone, chord);
  const std::size_t index = m_bars.indexOf(chord);
  chord.hold()->deleteTone(tone);
  regroup(chord);
  goOnRinging(index, note.note.string, note.note.fret, ticks);
  if (isToneless(chord)) m_emptied.emplace_back(&chord);
}

/// The tone that was cut where the same one was not struck again after all.
void CorrectedBars::goOnRinging(std::size_t chord, int string, int fret, int ticks) {
  int between = 0;
  for (std::size_t before = chord; before-- > 0;) {
    between += m_bars.chord(before).ticks();
    const QBHold* hold = m_bars.chord(before).hold();
    QBTone* ringing = hold ? hold->findToneByString(string) : nullptr;
    if (!ringing) continue;
    const int own = ringing->hasTicks() ? ringing->ticks() : m_bars.chord(before).ticks();
    if (ringing->fret() == fret && own == between) ringing->setTicks(own + ticks);
    return;
  }
}

/// On the grid of sixteenths or of thirds of a beat.
int CorrectedBars::tickOf(const fingering::Note& note) const {
  const double tick = m_time.tickOfSeconds(note.onset);
  const int sixteenth = roundedTo(tick, ticksOfSixteenth(m_isCompound));
  const int third = roundedTo(tick, kTicksOfThird);
  return std::abs(third - tick) + kNearerThird < std::abs(sixteenth - tick) ? third : sixteenth;
}

std::optional<std::size_t> CorrectedBars::chordFor(const SongNote& note) {
  QBChord& around = *m_before.at(static_cast<std::size_t>(note.chord));
  const bool isStruck = !isToneless(around) ||
                        std::ranges::count(m_emptied, &around, &platform::Ref<QBChord>::get) > 0;
  if (isStruck && std::abs(struckAt(around) - note.note.onset) <= SongNotes::kWithChord)
    return m_bars.indexOf(around);
  return m_bars.beginAt(tickOf(note.note) - m_time.begin());
}

std::optional<NeckPlace> CorrectedBars::add(const SongNote& note, const StringChoice& strings) {
  if (note.chord < 0) return {};
  const auto index = chordFor(note);
  if (!index) return {};
  QBChord& chord = m_bars.chord(*index);
  std::array<bool, kStrings> isFree;
  for (int string = 0; string < kStrings; ++string)
    isFree[static_cast<std::size_t>(string)] =
        !chord.hold() || !chord.hold()->findToneByString(string);
  const auto string = strings.best(isFree);
  if (!string) return {};
  const int fret = strings.frets[static_cast<std::size_t>(*string)];
  const Tones beside = loudestFirst(chord);
  if (!chord.hold()) chord.setHold(m_db.createHold());
  if (beside.empty()) chord.setTimestamp(rhythm::sampleOfOnset(note.note));
  QBTone* tone = chord.hold()->addTone(*string, fret, static_cast<double>(note.note.amplitude));
  tone->setActive(true);
  tone->setTicks(beside.empty() || !beside.front()->hasTicks() ? chord.ticks()
                                                               : beside.front()->ticks());
  regroup(chord);
  return NeckPlace{*string, fret};
}

void CorrectedBars::finish() {
  for (const auto& chord : m_emptied)
    if (isToneless(*chord)) m_bars.joinToBefore(m_bars.indexOf(*chord));
  m_bars.finish();
  m_song.forgetCaches();
}

}  // namespace korvel
