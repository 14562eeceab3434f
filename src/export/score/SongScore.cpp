// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/SongScore.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "export/score/ChordReading.h"
#include "export/score/SongBeats.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongLyrics.h"
#include "music/ChordStep.h"
#include "music/Pitch.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

using Chords = std::vector<platform::Ref<QBChord>>;

constexpr double kSecondsOfMinute = 60;

int durationOf(const QBChord& chord) { return std::clamp(chord.duration(), 1, kLongestDuration); }

/// Reads the chords of one song in its tuning.
class SongReader {
 public:
  explicit SongReader(std::vector<int> openStrings) : m_openStrings(std::move(openStrings)) {}

  /// Of a bar behind those that were read before, which is filled with rests.
  ScoreBar bar(const Chords& chords, const Meter& meter) {
    ScoreBar bar{meter, {}};
    int unit = m_unit;
    for (const auto& chord : chords) {
      m_units.emplace(chord, unit);
      bar.events.push_back(eventOf(*chord));
      unit += bar.events.back().duration;
    }
    const int bars = std::max(1, (unit - m_unit + meter.units() - 1) / meter.units());
    m_unit += bars * meter.units();
    return bar;
  }

  /// Of chords as they were recorded, one after the other: a chord that grew longer did so over
  /// the empty ones behind it. Rests in a row become one.
  std::vector<ScoreEvent> eventsInTime(const Chords& chords) {
    std::vector<ScoreEvent> events;
    int covered = 0;
    for (const auto& chord : chords) {
      ScoreEvent event = eventOf(*chord);
      const bool rest = event.tones.empty();
      if (rest && covered > 0 && event.duration == kUnitsOfSixteenth) {
        m_units.emplace(chord, m_unit - covered);
        covered -= kUnitsOfSixteenth;
        continue;
      }
      m_units.emplace(chord, m_unit);
      m_unit += event.duration;
      covered = event.duration - kUnitsOfSixteenth;
      if (rest && !events.empty() && events.back().tones.empty())
        events.back().duration += event.duration;
      else
        events.push_back(std::move(event));
    }
    return events;
  }

  /// Where a chord begins that was read; none for one that is in no bar.
  std::optional<int> unitOf(const QBChord& chord) const {
    const auto found = m_units.find(&chord);
    return found == m_units.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  ScoreEvent eventOf(const QBChord& chord) const {
    ScoreEvent event{durationOf(chord) * kUnitsOfSixteenth, {}, std::nullopt};
    for (const BeatTone& each : tonesOf(chord, m_openStrings)) event.tones.push_back(each.tone);
    if (!event.tones.empty()) event.harmony = harmonyOf(chord);
    return event;
  }

  std::vector<int> m_openStrings;
  int m_unit = 0;  ///< Behind what was read.
  std::unordered_map<const QBChord*, int> m_units;
};

std::vector<ScoreBar> barsOf(SongReader& reader, const QBSong& song) {
  std::vector<ScoreBar> bars;
  for (const auto& measure : song.allMeasures())
    bars.push_back(reader.bar(measure->allChords(), meterOf(*measure)));
  return bars;
}

/// By what the words of a song of slices are placed: ticks from the first bar line, which is behind
/// a first bar that is not full, or without measures the indexes of chords. Silent chords beside
/// the measures take no time.
std::vector<int> placesOfWords(QBSong& song) {
  std::vector<int> places;
  const bool isInBars = !song.measures().empty();
  const QBMeasure* bar = nullptr;
  int tick = 0, bars = 0, missing = 0, firstBarLine = 0;
  for (const auto& chord : song.allChords()) {
    const QBMeasure* measure = chord->measure();
    if (measure && measure != bar) {
      if (bars++ == 1 && missing > 0) firstBarLine = tick;
      if (bars == 1) missing = ticksOfBar(measure->beat(), measure->beattype());
      bar = measure;
    }
    places.push_back(tick);
    if (!measure) {
      tick += isInBars ? 0 : 1;
      continue;
    }
    const int ticks =
        durationOf(*chord) * ticksOfSixteenth(isCompound(measure->beat(), measure->beattype()));
    if (bars == 1) missing -= ticks;
    tick += ticks;
  }
  for (int& place : places) place -= firstBarLine;
  return places;
}

/// Each where the chord is written that it is sung to, or what is written before that.
std::vector<ScoreWords> wordsOf(QBSong& song, const SongReader& reader) {
  std::vector<ScoreWords> words;
  const std::vector<int> places = placesOfWords(song);
  for (const SungWords& each : lyricsOf(song)) {
    const auto after = std::ranges::upper_bound(places, each.tick);
    auto chord = after == places.begin() ? 0 : after - places.begin() - 1;
    std::optional<int> unit;
    for (; chord >= 0 && chord < std::ssize(places) && !unit; --chord)
      unit = reader.unitOf(*song.allChords()[static_cast<std::size_t>(chord)]);
    words.push_back({unit.value_or(0), each.text});
  }
  return words;
}

bool isBehind(int capo, const std::vector<ScoreEvent>& events) {
  return std::ranges::all_of(events, [capo](const ScoreEvent& event) {
    return std::ranges::all_of(event.tones,
                               [capo](const ScoreTone& tone) { return tone.fret >= capo; });
  });
}

double tempoOfSlices(const QBSong& song) {
  return kSecondsOfMinute / (kSixteenthsOfQuarter * kSecondsOfChord) * rateOf(song);
}

Score scoreOnBeats(QBSong& song, const std::optional<Meter>& meter) {
  const Score head = headOf(song);
  return scoreOf(head, sheetOf(song, head.openStrings), meter);
}

Score scoreOfSlices(QBSong& song, const std::optional<Meter>& meter) {
  Score score = headOf(song);
  SongReader reader(score.openStrings);
  if (meter || song.measures().empty())
    score.bars = {{meter.value_or(Meter()), reader.eventsInTime(song.allChords())}};
  else
    score.bars = barsOf(reader, song);
  score.words = wordsOf(song, reader);
  return score;
}

}  // namespace

Meter meterOf(const QBSong& song) {
  const auto measures = song.allMeasures();
  return measures.empty() ? Meter() : meterOf(*measures.front());
}

double rateOf(const QBSong& song) {
  const double rate = song.tempoRate();
  return rate >= 0.01 && rate <= 100 ? rate : 1;
}

ScoreKey keyOf(const QBSong& song) {
  const int key = std::clamp(song.key(), 0, 2 * kNotesPerOctave - 1);
  return {key % kNotesPerOctave, key >= kNotesPerOctave};
}

Score headOf(const QBSong& song) {
  Score score;
  score.title = song.title();
  if (!song.instrument().empty()) score.instrument = song.instrument();
  const OpenPitches open = openStringsOf(&song).pitches();
  score.openStrings.assign(open.begin(), open.end());
  score.tempo = tempoOfSlices(song);
  return score;
}

void putBehind(int capo, Score& score) {
  const bool isPlayable = std::ranges::all_of(score.bars, [capo](const ScoreBar& bar) {
    return isBehind(capo, bar.events) && isBehind(capo, bar.lower);
  });
  score.capo = isPlayable ? std::max(capo, 0) : 0;
}

Score scoreOf(Score head, const BeatSheet& sheet, const std::optional<Meter>& meter) {
  const SongBeats beats(sheet);
  head.countsBeats = true;
  head.tempo = beats.tempo() * sheet.rate;
  head.key = sheet.key;
  head.swing = sheet.time.swing;
  for (const SungWords& each : sheet.words)
    head.words.push_back({beats.unitsOf(each.tick), each.text});
  head.bars = scoreBarsOf(beats.music(meter));
  for (ScoreBar& bar : head.bars)
    if (bar.tempo) *bar.tempo *= sheet.rate;
  return head;
}

Score scoreOf(QBSong& song, const std::optional<Meter>& meter) {
  Score score = song.isOnBeats() ? scoreOnBeats(song, meter) : scoreOfSlices(song, meter);
  putBehind(capoOf(song), score);
  return score;
}

}  // namespace korvel
