// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/words/AnchoredWords.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/SongTime.h"
#include "music/Ticks.h"
#include "tab/page/PageOfSong.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {
namespace {

/// Words are placed anew to half a beat.
constexpr int kStepOfWords = kTicksOfBeat / 2;
/// Two readings of one beat differ by less, in seconds.
constexpr double kSameTime = 0.05;

/// The chord that a tick lies in.
std::size_t indexAt(const std::vector<int>& ticks, int tick) {
  const auto after = std::upper_bound(ticks.begin(), ticks.end() - 1, tick);
  return after == ticks.begin() ? 0 : static_cast<std::size_t>(after - ticks.begin() - 1);
}

/// Where the first chord that is meant begins; none when there is no such chord any more.
template <class Meant>
std::optional<int> tickOfFirst(QBSong& song, const std::vector<int>& ticks, Meant isMeant) {
  const auto& chords = song.allChords();
  const auto found = std::ranges::find_if(chords, [&](const auto& each) { return isMeant(*each); });
  if (found == chords.end()) return std::nullopt;
  return ticks[static_cast<std::size_t>(found - chords.begin())];
}

}  // namespace

AnchoredWords::AnchoredWords(QBSong& song) : m_song(song) {
  const std::vector<SungWords> words = lyricsOf(song);
  if (words.empty() || song.allChords().empty()) return;
  const std::vector<int> ticks = ticksOfChords(song);
  for (const SungWords& each : words) {
    const std::size_t at = indexAt(ticks, each.tick);
    QBChord* chord = song.allChords()[at];
    QBMeasure* bar = song.isOnBeats() ? chord->measure() : nullptr;
    const int begin =
        bar ? *tickOfFirst(song, ticks, [bar](const QBChord& c) { return c.measure() == bar; })
            : ticks[at];
    m_words.push_back({platform::Ref<QBMeasure>(bar), platform::Ref<QBChord>(chord),
                       each.tick - begin, each.text});
  }
}

void AnchoredWords::putBack() const {
  if (m_words.empty()) return;
  std::vector<SungWords> words;
  const std::vector<int> ticks = ticksOfChords(m_song);
  for (const Anchored& each : m_words) {
    const auto begin = tickOfFirst(m_song, ticks, [&each](const QBChord& chord) {
      return each.bar ? chord.measure() == each.bar.get() : &chord == each.chord.get();
    });
    if (begin) words.push_back({*begin + each.offset, each.text});
  }
  setLyrics(m_song, std::move(words));
}

TimedWords::TimedWords(QBSong& song) {
  const std::vector<SungWords> words = lyricsOf(song);
  if (words.empty() || song.allChords().empty()) return;
  if (song.isOnBeats()) {
    const SongTime time(song);
    if (!time.isAsRecorded()) return;
    for (const SungWords& each : words)
      m_words.push_back({time.secondsOf(each.tick), each.tick, each.text});
    return;
  }
  const std::vector<int> ticks = ticksOfChords(song);
  for (const SungWords& each : words)
    if (const auto seconds = recordedSecondsOf(*song.allChords()[indexAt(ticks, each.tick)]))
      m_words.push_back({*seconds, each.tick, each.text});
}

void TimedWords::putInto(QBSong& song) const {
  if (m_words.empty() || song.allChords().empty()) return;
  if (song.isOnBeats()) return putOnBeats(song);
  std::vector<SungWords> words;
  const auto& chords = song.allChords();
  const std::vector<int> ticks = ticksOfChords(song);
  for (const Timed& each : m_words) {
    const auto nearest = std::ranges::min_element(chords, {}, [&each](const auto& chord) {
      return std::abs(recordedSecondsOf(*chord).value_or(0) - each.seconds);
    });
    words.push_back({ticks[static_cast<std::size_t>(nearest - chords.begin())], each.text});
  }
  setLyrics(song, std::move(words));
}

void TimedWords::putOnBeats(QBSong& song) const {
  const SongTime time(song);
  if (!time.isAsRecorded()) return;
  std::vector<SungWords> words;
  for (const Timed& each : m_words) {
    const double steps = time.tickOfSeconds(each.seconds) / kStepOfWords;
    const bool isThere = std::abs(time.secondsOf(each.tick) - each.seconds) < kSameTime;
    words.push_back(
        {isThere ? each.tick : static_cast<int>(std::lround(steps)) * kStepOfWords, each.text});
  }
  setLyrics(song, std::move(words));
}

}  // namespace korvel
