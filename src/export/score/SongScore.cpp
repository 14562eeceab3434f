// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/SongScore.h"

#include <algorithm>

#include "export/score/ChordReading.h"
#include "export/score/SongBeats.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using Chords = std::vector<platform::Ref<QBChord>>;

constexpr double kSecondsOfMinute = 60;

int durationOf(const QBChord& chord) { return std::clamp(chord.duration(), 1, kLongestDuration); }

/// Reads the chords of one song in its tuning.
class SongReader {
 public:
  explicit SongReader(std::vector<int> openStrings) : m_openStrings(std::move(openStrings)) {}

  std::vector<ScoreEvent> events(const Chords& chords) const {
    std::vector<ScoreEvent> events;
    for (const auto& chord : chords) events.push_back(eventOf(*chord));
    return events;
  }

  /// Of chords as they were recorded, one after the other: a chord that grew longer did so over
  /// the empty ones behind it. Rests in a row become one.
  std::vector<ScoreEvent> eventsInTime(const Chords& chords) const {
    std::vector<ScoreEvent> events;
    int covered = 0;
    for (const auto& chord : chords) {
      ScoreEvent event = eventOf(*chord);
      const bool rest = event.tones.empty();
      if (rest && covered > 0 && event.duration == kUnitsOfSixteenth) {
        covered -= kUnitsOfSixteenth;
        continue;
      }
      covered = event.duration - kUnitsOfSixteenth;
      if (rest && !events.empty() && events.back().tones.empty())
        events.back().duration += event.duration;
      else
        events.push_back(std::move(event));
    }
    return events;
  }

 private:
  ScoreEvent eventOf(const QBChord& chord) const {
    ScoreEvent event{durationOf(chord) * kUnitsOfSixteenth, {}, std::nullopt};
    for (const BeatTone& each : tonesOf(chord, m_openStrings)) event.tones.push_back(each.tone);
    if (!event.tones.empty()) event.harmony = harmonyOf(chord);
    return event;
  }

  std::vector<int> m_openStrings;
};

std::vector<ScoreBar> barsOf(const SongReader& reader, const QBSong& song) {
  std::vector<ScoreBar> bars;
  for (const auto& measure : song.allMeasures())
    bars.push_back({meterOf(*measure), reader.events(measure->allChords())});
  return bars;
}

double tempoOfSlices(const QBSong& song) {
  return kSecondsOfMinute / (kSixteenthsOfQuarter * kSecondsOfChord) * rateOf(song);
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
  Score score = headOf(song);
  const SongReader reader(score.openStrings);
  if (song.isOnBeats()) return scoreOf(score, sheetOf(song, score.openStrings), meter);
  if (meter || song.measures().empty())
    score.bars = {{meter.value_or(Meter()), reader.eventsInTime(song.allChords())}};
  else
    score.bars = barsOf(reader, song);
  return score;
}

}  // namespace korvel
