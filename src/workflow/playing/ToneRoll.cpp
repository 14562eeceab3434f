// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/ToneRoll.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/Neck.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
#include "tab/layout/SongBars.h"

namespace korvel {
namespace {

constexpr double kDecibelsShown = 40;

double loudest(QBSong& song) {
  double amp = 0;
  for (const auto& chord : song.allChords())
    if (const QBHold* hold = chord->hold())
      for (const QBTone* tone : hold->tones())
        if (std::isfinite(tone->amp())) amp = std::max(amp, tone->amp());
  return amp;
}

double loudnessOf(double amp, double loudest) {
  if (!(amp > 0) || !(loudest > 0)) return 0;
  return std::clamp(1 + 20 * std::log10(amp / loudest) / kDecibelsShown, 0.0, 1.0);
}

}  // namespace

ToneRoll::ToneRoll(QBSong& song) : m_chords(static_cast<int>(song.allChords().size())) {
  layOut(song);
  readTones(song);
  endAtRepetition();
}

void ToneRoll::layOut(QBSong& song) {
  if (song.isOnBeats()) {
    layOutOnBeats(song);
    return;
  }
  for (int chord = 1; chord <= m_chords; ++chord) m_begins.push_back(chord);
  readBars(song);
}

void ToneRoll::layOutOnBeats(QBSong& song) {
  const SongBars written(song);
  m_begins.clear();
  int end = 0;
  for (const SongBars::Bar& bar : written.bars()) {
    m_bars.push_back(bar.events.front().chord);
    for (const SongBars::Event& event : bar.events) {
      m_begins.push_back(event.from);
      end = event.from + event.ticks;
    }
    const int firstBeat = bar.events.front().from + kTicksOfBeat - bar.first % kTicksOfBeat;
    for (int beat = firstBeat; beat < end; beat += kTicksOfBeat) m_beats.push_back(beat);
  }
  m_begins.push_back(end);
  if (written.bars().empty()) return;
  const SongBars::Bar& first = written.bars().front();
  m_firstBar = first.number;
  m_stepsOfColumn = ticksOfSixteenth(isCompound(first.beat, first.beattype));
}

int ToneRoll::begin(int chord) const {
  return m_begins[static_cast<std::size_t>(std::clamp(chord, 0, m_chords))];
}

int ToneRoll::chordAt(int step) const {
  const auto after = std::ranges::upper_bound(m_begins, step);
  return std::clamp(static_cast<int>(after - m_begins.begin()) - 1, 0, std::max(m_chords - 1, 0));
}

int ToneRoll::lengthOf(const QBTone& tone, int chord) const {
  const bool isOnBeats = m_stepsOfColumn > 1;
  int steps = tone.soundingSteps();
  if (isOnBeats) steps = tone.ticks() > 0 ? tone.ticks() : stepsOf(chord);
  return std::min(steps, m_begins.back() - begin(chord));
}

void ToneRoll::readTones(QBSong& song) {
  const OpenPitches open = openStringsOf(&song).pitches();
  const double most = loudest(song);
  int index = -1;
  for (const auto& chord : song.allChords()) {
    ++index;
    const QBHold* hold = chord->hold();
    if (!hold) continue;
    for (const QBTone* tone : hold->tones()) {
      if (tone->string() < 0 || tone->string() >= kStrings) continue;
      const int pitch = addNotes(open[static_cast<std::size_t>(tone->string())], tone->fret());
      m_tones.push_back({index, lengthOf(*tone, index), std::clamp(pitch, 0, kHighestNote),
                         tone->string(), tone->fret(), loudnessOf(tone->amp(), most),
                         tone->isActive()});
    }
  }
  std::ranges::stable_sort(m_tones, {},
                           [](const Tone& tone) { return std::tuple(tone.chord, tone.pitch); });
}

void ToneRoll::endAtRepetition() {
  std::map<int, Tone*> last;
  for (Tone& tone : m_tones) {
    Tone*& before = last[tone.pitch];
    if (before && before->chord < tone.chord)
      before->steps = std::min(before->steps, begin(tone.chord) - begin(before->chord));
    before = &tone;
  }
  for (const Tone& tone : m_tones) m_longest = std::max(m_longest, tone.steps);
  if (last.empty()) return;
  m_lowest = last.begin()->first;
  m_highest = last.rbegin()->first;
}

void ToneRoll::readBars(QBSong& song) {
  if (song.measures().empty()) return;
  const QBMeasure* bar = nullptr;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    const QBMeasure* of = chord->measure();
    if (of && of != bar) m_bars.push_back(index);
    bar = of ? of : bar;
    ++index;
  }
}

std::vector<ToneRoll::Tone>::const_iterator ToneRoll::firstSounding(int first) const {
  return std::ranges::lower_bound(m_tones, begin(first) - m_longest, {},
                                  [this](const Tone& tone) { return begin(tone.chord); });
}

std::vector<ToneRoll::Tone>::const_iterator ToneRoll::endSounding(int end) const {
  return std::ranges::lower_bound(m_tones, end, {}, &Tone::chord);
}

}  // namespace korvel
