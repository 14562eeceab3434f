// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/EditedChords.h"

#include <algorithm>
#include <cmath>

#include "arrange/chords/QBToneGroupBuilder.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBRightHandPattern.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/store/QBTabMgr.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/BeatBars.h"

namespace korvel {
namespace {

/// Time stamps of chords that were made and not heard are smaller.
constexpr std::int64_t kFirstHeard = 3;
/// A length that differs less is the one that the chord has anyway.
constexpr double kOtherLength = 1.3;

/// To sixteenths or, where that is nearer, to thirds of a beat; one at least.
int onGrid(double ticks, int unit) {
  const auto rounded = [ticks](int grid) {
    return std::max(static_cast<int>(std::lround(ticks / grid)), 1) * grid;
  };
  const int sixteenths = rounded(unit);
  const int thirds = rounded(kTicksOfBeat / 3);
  return std::abs(thirds - ticks) < std::abs(sixteenths - ticks) ? thirds : sixteenths;
}

bool isLike(int ticks, int other) {
  const double ratio = static_cast<double>(ticks) / std::max(other, 1);
  return ratio < kOtherLength && ratio > 1 / kOtherLength;
}

}  // namespace

std::optional<double> recordedSecondsOf(const QBChord& chord) {
  if (chord.hasBeatTime()) return static_cast<double>(chord.beatTime()) / platform::kSampleRate;
  if (chord.timestamp() > 0 && chord.timestamp() < kFirstHeard) return {};
  return static_cast<double>(chord.timestamp()) / platform::kSampleRate;
}

EditedChords::EditedChords(QBSong& song) {
  song.forgetCaches();
  const bool onBeats = song.isOnBeats();
  const SongTime time(song);
  const auto& chords = song.allChords();
  for (std::size_t i = 0; i < chords.size(); ++i) {
    QBChord& chord = *chords[i];
    const auto seconds = recordedSecondsOf(chord);
    if (!chord.isEdited() || !seconds) continue;
    const double length =
        onBeats ? time.secondsOf(time.tickOf(i + 1)) - time.secondsOf(time.tickOf(i)) : 0;
    m_kept.push_back({*seconds, length, CopiedChord(chord), chord.harmony(),
                      chord.hasBaseTone() ? std::optional(chord.baseTone()) : std::nullopt,
                      chord.pattern()});
  }
  std::ranges::stable_sort(m_kept, {}, &Kept::seconds);
}

EditedChords::~EditedChords() = default;

void EditedChords::putInto(QBSong& song) {
  if (m_kept.empty()) return;
  song.forgetCaches();
  findTargets(song);
  for (const Kept& kept : m_kept)
    if (kept.target) fill(kept);
  song.forgetCaches();
  if (BeatBars::areIn(song)) setLengths(song);
}

/// A chord each, the nearest one that is left.
void EditedChords::findTargets(QBSong& song) {
  std::vector<platform::Ref<QBChord>> free = song.allChords();
  for (Kept& kept : m_kept) {
    const auto distance = [&](const auto& chord) {
      return std::abs(recordedSecondsOf(*chord).value_or(0) - kept.seconds);
    };
    const auto found = std::ranges::min_element(free, {}, distance);
    if (found == free.end()) return;
    kept.target = *found;
    free.erase(found);
  }
}

void EditedChords::fill(const Kept& kept) {
  QBChord& chord = *kept.target;
  if (!chord.hold()) chord.setHold(QBTabMgr::of(chord).createHold());
  QBHold& hold = *chord.hold();
  for (const auto& tone : hold.tones().snapshot()) hold.deleteTone(tone);
  for (const CopiedChord::Tone& tone : kept.chord.tones) {
    tone.addTo(hold, tone.string, tone.fret);
    if (chord.hasTicks()) hold.findToneByString(tone.string)->setTicks(chord.ticks());
  }
  chord.setHarmony(kept.harmony);
  if (kept.baseTone)
    chord.setBaseTone(*kept.baseTone);
  else
    chord.clearBaseTone();
  chord.setPattern(kept.pattern);
  chord.setEdited(true);
  QBToneGroupBuilder(&chord).build();
  chord.forgetCaches();
}

void EditedChords::setLengths(QBSong& song) const {
  const SongTime time(song);
  const auto chords = song.allChords();
  std::vector<int> wished;
  for (const Kept& kept : m_kept) {
    const auto found = std::ranges::find(chords, kept.target.get(), &platform::Ref<QBChord>::get);
    const bool isKnown = kept.target && kept.length > 0;
    wished.push_back(0);
    if (!isKnown) continue;
    const int begin = time.tickOf(static_cast<std::size_t>(found - chords.begin()));
    wished.back() = static_cast<int>(std::lround(
        std::min(time.tickOfSeconds(time.secondsOf(begin) + kept.length) - begin, 1e6)));
  }
  for (std::size_t i = 0; i < m_kept.size(); ++i)
    if (wished[i] > 0) setLength(song, m_kept[i], wished[i]);
}

/// At most to the end of the bar, or to the next chord that the user changed.
void EditedChords::setLength(QBSong& song, const Kept& kept, int wished) {
  BeatBars bars(QBTabMgr::of(song), song);
  const auto chords = song.allChords();
  const auto found = std::ranges::find(chords, kept.target.get(), &platform::Ref<QBChord>::get);
  const auto index = static_cast<std::size_t>(found - chords.begin());
  int room = chords[index]->ticks();
  for (std::size_t i = index + 1; i < chords.size() && bars.areInOneBar(index, i); ++i) {
    if (chords[i]->isEdited()) break;
    room += chords[i]->ticks();
  }
  wished = std::min(onGrid(wished, bars.ticksOfSixteenthAt(index)), room);
  if (isLike(wished, bars.writtenTicks(index))) wished = bars.writtenTicks(index);
  if (wished != bars.writtenTicks(index)) bars.setTicks(index, wished);
  bars.finish();
}

}  // namespace korvel
