// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/drawn/DrawnInBars.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "music/Ticks.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/ChordTicks.h"

namespace korvel {

DrawnInBars::DrawnInBars(QBTabMgr& db, QBSong& song) : DrawnChords(db, song), m_bars(db, song) {
  const SongTime time(song);
  m_pickUp = -time.begin();
  std::size_t index = 0;
  for (const auto& chord : song.allChords()) m_begins[chord] = time.tickOf(index++) + m_pickUp;
}

int DrawnInBars::gridUnit() const {
  return m_bars.size() > 0 ? m_bars.ticksOfSixteenthAt(0) : ticksOfSixteenth(false);
}

/// Sixteenths count from the bar lines. Chords that stand between them, as in triplets, are places
/// of the grid as well.
int DrawnInBars::nearestBegin(double step, int unit) const {
  int nearest = static_cast<int>(std::lround((step - m_pickUp) / unit)) * unit + m_pickUp;
  if (unit == 1) return nearest;
  for (const auto& [chord, begin] : m_begins)
    if (std::abs(begin - step) < std::abs(nearest - step)) nearest = begin;
  return nearest;
}

int DrawnInBars::beginOf(const QBChord& chord) const { return m_begins.at(&chord); }

int DrawnInBars::stepsOf(const ToneIndex& place) const {
  const QBChord& chord = chordOf(place);
  return ticksOfTone(*chord.hold()->findToneByString(place.string), chord);
}

/// Behind the bar line what is silent stays a rest of its own.
void DrawnInBars::join() {
  for (const auto& chord : std::exchange(m_left, {}))
    if (!chord->isDeleted() && isToneless(*chord)) m_bars.joinToBefore(m_bars.indexOf(*chord));
}

/// What sounds in a chord that is divided goes on through the new one.
QBChord* DrawnInBars::chordAt(int begin) {
  const std::vector<Ringing> ringing = ringingAt(begin);
  const auto index = m_bars.beginAt(begin);
  if (!index) return nullptr;
  for (const auto& [tone, ticks] : ringing) tone->setTicks(ticks);
  QBChord* chord = &m_bars.chord(*index);
  m_begins[chord] = begin;
  return chord;
}

/// The tones of the chord that lasts through there.
std::vector<DrawnInBars::Ringing> DrawnInBars::ringingAt(int begin) const {
  std::vector<Ringing> ringing;
  int at = 0;
  for (std::size_t i = 0; i < m_bars.size() && at < begin; ++i) {
    const QBChord& chord = m_bars.chord(i);
    const int end = at + chord.ticks();
    if (end > begin && !isToneless(chord))
      for (QBTone* tone : chord.hold()->tones())
        ringing.push_back({tone, ticksOfTone(*tone, chord)});
    at = end;
  }
  return ringing;
}

/// Until the string sounds again, or the song ends.
int DrawnInBars::roomOf(std::size_t chord, int string) const {
  int room = m_bars.chord(chord).ticks();
  for (std::size_t next = chord + 1; next < m_bars.size(); ++next) {
    const QBHold* hold = m_bars.chord(next).hold();
    if (hold && hold->findToneByString(string)) break;
    room += m_bars.chord(next).ticks();
  }
  return room;
}

void DrawnInBars::came(QBChord& chord, int string, int steps) {
  const std::size_t index = m_bars.indexOf(chord);
  QBTone& tone = *chord.hold()->findToneByString(string);
  tone.setTicks(std::clamp(steps, 1, roomOf(index, string)));
  endWithTones(chord);
}

/// A chord of which all tones end before it does is followed by a rest, of its own in case that
/// what was struck earlier rings on through it.
void DrawnInBars::endWithTones(QBChord& chord) {
  int longest = 0;
  for (const QBTone* tone : chord.hold()->tones())
    longest = std::max(longest, ticksOfTone(*tone, chord));
  if (longest < chord.ticks()) m_bars.beginAt(m_begins.at(&chord) + longest);
}

void DrawnInBars::lengthen(const ToneIndex& place, int steps, int unit) {
  QBChord& chord = chordOf(place);
  QBTone& tone = *chord.hold()->findToneByString(place.string);
  const int room = roomOf(m_bars.indexOf(chord), place.string);
  tone.setTicks(std::clamp(ticksOfTone(tone, chord) + steps, std::min(unit, room), room));
  endWithTones(chord);
  changed(chord);
}

void DrawnInBars::changed(QBChord& chord) {
  m_left.emplace_back(&chord);
  chord.setEdited(true);
  regroup(chord);
}

void DrawnInBars::finish() {
  join();
  m_bars.finish();
}

}  // namespace korvel
