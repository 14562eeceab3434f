// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/Metronome.h"

#include <algorithm>
#include <map>
#include <optional>

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"

namespace korvel {
namespace {

enum class Click { beat, first };

using ClicksOfChords = std::map<const QBChord*, Click>;

constexpr std::uint8_t kPercussion = 9;
constexpr std::uint8_t kSideStick = 37;
constexpr std::uint8_t kHighWoodBlock = 76;
constexpr std::uint8_t kVelocityOfClick = 60;
constexpr std::uint8_t kVelocityOfFirst = 90;
constexpr float kSeconds = 0.1F;
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

platform::MidiNoteMessage noteOf(Click click) {
  platform::MidiNoteMessage note;
  note.channel = kPercussion;
  note.note = click == Click::first ? kHighWoodBlock : kSideStick;
  note.velocity = click == Click::first ? kVelocityOfFirst : kVelocityOfClick;
  note.duration = kSeconds;
  return note;
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

double addCountIn(QBSong& song, int from, platform::MusicTrack& track) {
  const QBMeasure* measure = measureAt(song, from);
  const int clicks = measure ? std::clamp(measure->beat(), 1, kMostClicksBefore) : kClicksBefore;
  const int steps = measure ? sixteenthsOfBeat(*measure) : kSixteenthsOfQuarter;
  const auto before = [&](int click) { return ((clicks - click) * steps - 1) * kSecondsOfChord; };
  for (int click = 0; click < clicks; ++click)
    track.addLeadIn(before(click), noteOf(click == 0 ? Click::first : Click::beat));
  return before(0);
}

void addClicks(QBSong& song, int from, int to, platform::MusicTrack& track) {
  const Beats beats(song);
  float time = 0;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    if (chord->position() < from || chord->position() > to) continue;
    time = stepAfter(time);
    if (const auto click = beats.at(*chord, index++)) track.addNote(time, noteOf(*click));
  }
}

}  // namespace korvel
