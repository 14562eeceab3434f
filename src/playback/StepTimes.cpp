// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/StepTimes.h"

#include <algorithm>
#include <map>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

enum class Click { beat, first };

using ClicksOfChords = std::map<const QBChord*, Click>;

constexpr double kSounding = 0.95;
constexpr int kClicksBefore = 4;
constexpr int kMostClicksBefore = 16;

/// Beats shorter than a sixteenth cannot be told apart, and a measure without a beat has
/// sixteenths.
int sixteenthsOfBeat(const QBMeasure& measure) {
  return measure.beattype() > 0 ? std::max(kSixteenthsOfWhole / measure.beattype(), 1) : 1;
}

void addBeats(const QBMeasure& measure, ClicksOfChords& clicks) {
  int begin = 0;
  for (const auto& chord : measure.allChords()) {
    if (begin % sixteenthsOfBeat(measure) == 0)
      clicks[chord.get()] = begin == 0 ? Click::first : Click::beat;
    begin += chord->duration();
  }
}

/// Where the beats of a song are; none without measures.
ClicksOfChords beatsOf(const QBSong& song) {
  ClicksOfChords clicks;
  for (const auto& measure : song.allMeasures()) addBeats(*measure, clicks);
  return clicks;
}

/// What is heard with a chord; index: its place in the range.
class Beats {
 public:
  explicit Beats(const QBSong& song)
      : m_inMeasures(!song.measures().empty()), m_clicks(beatsOf(song)) {}

  std::optional<Click> at(const QBChord& chord, int index) const {
    if (!m_inMeasures)
      return index % kSixteenthsOfQuarter == 0 ? std::optional(Click::beat) : std::nullopt;
    const auto found = m_clicks.find(&chord);
    return found == m_clicks.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  bool m_inMeasures;
  ClicksOfChords m_clicks;
};

/// Null where the first chord from that position on is in no measure.
const QBMeasure* measureAt(QBSong& song, int from) {
  const auto& chords = song.allChords();
  const auto first =
      std::ranges::find_if(chords, [from](const auto& chord) { return chord->position() >= from; });
  return first == chords.end() ? nullptr : (*first)->measure();
}

}  // namespace

StepTimes::StepTimes(QBSong& song)
    : m_song(&song), m_count(static_cast<int>(song.allChords().size())) {}

double StepTimes::goTo(const QBChord& chord) {
  if (!m_firstSample) m_firstSample = chord.timestamp();
  m_time = stepAfter(m_time);
  if (chord.hold() && !chord.hold()->isEmpty()) m_lastStruck = m_time;
  m_lastDuration = std::clamp(chord.duration(), 1, kLongestDuration);
  return m_time;
}

double StepTimes::lengthOfSteps(double steps) { return steps * kSecondsOfChord * kSounding; }

double StepTimes::lengthOf(const QBTone& tone) const { return lengthOfSteps(tone.soundingSteps()); }

std::vector<TimedBeat> StepTimes::beats(int from, int to) const {
  const Beats beats(*m_song);
  std::vector<TimedBeat> found;
  float time = 0;
  int index = 0;
  for (const auto& chord : m_song->allChords()) {
    if (chord->position() < from || chord->position() > to) continue;
    time = stepAfter(time);
    if (const auto click = beats.at(*chord, index++))
      found.push_back({time, *click == Click::first});
  }
  return found;
}

std::vector<TimedBeat> StepTimes::countIn(int from) const {
  const QBMeasure* measure = measureAt(*m_song, from);
  const int clicks = measure ? std::clamp(measure->beat(), 1, kMostClicksBefore) : kClicksBefore;
  const int steps = measure ? sixteenthsOfBeat(*measure) : kSixteenthsOfQuarter;
  std::vector<TimedBeat> found;
  for (int click = 0; click < clicks; ++click)
    found.push_back({-(((clicks - click) * steps - 1) * kSecondsOfChord), click == 0});
  return found;
}

int StepTimes::indexAt(double time) const {
  if (m_count <= 1) return -1;
  float begin = 0;
  for (int i = 0;; ++i) {
    begin = stepAfter(begin);
    if (time >= begin && time < stepAfter(begin)) return i;
    if (i + 1 >= m_count - 1) return -1;
  }
}

double StepTimes::placeOf(int index) const { return index * kSecondsOfChord; }

double StepTimes::end() const { return stepAfter(m_time); }

double StepTimes::endOfLoop() const { return m_time + m_lastDuration * kSecondsOfChord; }

float StepTimes::shareUntil(int index, int count) const {
  return static_cast<float>(index + 1) / static_cast<float>(count);
}

double StepTimes::secondsUntil(int chord) const { return chord * kSecondsOfChord; }

std::optional<double> StepTimes::recordedSecondsAt(double time) const {
  if (!m_firstSample) return {};
  return static_cast<double>(*m_firstSample) / platform::kSampleRate + time - kSecondsOfChord;
}

}  // namespace korvel
