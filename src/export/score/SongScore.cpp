// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/SongScore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using Chords = std::vector<platform::Ref<QBChord>>;

constexpr double kSecondsOfMinute = 60;

int durationOf(const QBChord& chord) { return std::clamp(chord.duration(), 1, kLongestDuration); }

std::optional<ScoreHarmony> harmonyOf(const QBChord& chord) {
  const QBHarmony* harmony = chord.harmony();
  if (!harmony || !QBHarmony::noteAsString(chord.baseTone())) return std::nullopt;
  return ScoreHarmony{chord.baseTone(), harmony->type()};
}

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
      if (rest && covered > 0 && event.duration == 1) {
        --covered;
        continue;
      }
      covered = event.duration - 1;
      if (rest && !events.empty() && events.back().tones.empty())
        events.back().duration += event.duration;
      else
        events.push_back(std::move(event));
    }
    return events;
  }

 private:
  ScoreEvent eventOf(const QBChord& chord) const {
    ScoreEvent event{durationOf(chord), tonesOf(chord), std::nullopt};
    if (!event.tones.empty()) event.harmony = harmonyOf(chord);
    return event;
  }

  std::vector<ScoreTone> tonesOf(const QBChord& chord) const {
    std::array<int, kStrings> frets;
    frets.fill(-1);
    if (const QBHold* hold = chord.hold())
      for (const QBTone* tone : hold->tones()) {
        if (!tone->isActive() || tone->string() < 0 || tone->string() >= kStrings) continue;
        int& fret = frets.at(static_cast<std::size_t>(tone->string()));
        fret = std::max(fret, tone->fret());
      }
    std::vector<ScoreTone> tones;
    for (int string = 0; string < kStrings; ++string) {
      const int fret = frets[static_cast<std::size_t>(string)];
      const int pitch = addNotes(m_openStrings[static_cast<std::size_t>(string)], fret);
      if (fret >= 0 && pitch <= kHighestNote) tones.push_back({string, fret, pitch});
    }
    return tones;
  }

  std::vector<int> m_openStrings;
};

Meter meterOf(const QBMeasure& measure) {
  const int type = measure.beattype();
  const bool known = type > 0 && kSixteenthsOfWhole % type == 0;
  if (!known || measure.beat() < 1 || measure.beat() > kSixteenthsOfWhole * 2) return {};
  return {measure.beat(), type};
}

std::vector<ScoreBar> barsOf(const SongReader& reader, const QBSong& song) {
  std::vector<ScoreBar> bars;
  for (const auto& measure : song.allMeasures())
    bars.push_back({meterOf(*measure), reader.events(measure->allChords())});
  return bars;
}

double tempoOf(const QBSong& song) {
  const double rate = song.tempoRate();
  return kSecondsOfMinute / (kSixteenthsOfQuarter * kSecondsOfChord) *
         (rate >= 0.01 && rate <= 100 ? rate : 1);
}

}  // namespace

Meter meterOf(const QBSong& song) {
  const auto measures = song.allMeasures();
  return measures.empty() ? Meter() : meterOf(*measures.front());
}

Score headOf(const QBSong& song) {
  Score score;
  score.title = song.title();
  if (!song.instrument().empty()) score.instrument = song.instrument();
  const OpenPitches open = openStringsOf(&song).pitches();
  score.openStrings.assign(open.begin(), open.end());
  score.tempo = tempoOf(song);
  return score;
}

Score scoreOf(QBSong& song, const std::optional<Meter>& meter) {
  Score score = headOf(song);
  const SongReader reader(score.openStrings);
  if (meter || song.measures().empty())
    score.bars = {{meter.value_or(Meter()), reader.eventsInTime(song.allChords())}};
  else
    score.bars = barsOf(reader, song);
  return score;
}

}  // namespace korvel
