// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandVoices.h"

#include <algorithm>
#include <utility>

#include "chords/voices/VoiceFinder.h"
#include "fingering/Fingering.h"
#include "rhythm/writing/WrittenValues.h"

namespace korvel {
namespace {

using chords::VoicePlace;
using fingering::Note;
using rhythm::kTicksOfBeat;
using rhythm::Reading;

/// As loud as a guitar's that is struck well.
constexpr float kStrengthOfVoice = 1;
constexpr float kLoudnessOfVoice = 0.1F;
constexpr int kHalfOfBeat = kTicksOfBeat / 2;

/// The places at which tones of a voice may begin. Ticks count from the first beat.
class VoiceGrid {
 public:
  explicit VoiceGrid(const Reading& reading) : m_reading(reading) {
    for (std::size_t beat = 0; beat + 1 < reading.beats.size(); ++beat)
      for (int part = 0; part < kTicksOfBeat; part += step()) add(beat, part);
  }

  std::span<const VoicePlace> places() const { return m_places; }
  double end() const { return m_reading.beats.back(); }
  /// Of a place, or of the end.
  double secondsAt(std::size_t place) const {
    return place < m_places.size() ? m_places[place].time : end();
  }
  int tickAt(std::size_t place) const { return static_cast<int>(place) * step(); }
  /// Of the time of a place; what lies between two places is put between their ticks.
  double tickOf(double seconds) const {
    const auto after = std::ranges::upper_bound(m_places, seconds, {}, &VoicePlace::time);
    if (after == m_places.begin()) return 0;
    const auto place = static_cast<std::size_t>(after - m_places.begin()) - 1;
    const double from = m_places[place].time, to = secondsAt(place + 1);
    return tickAt(place) + std::min(1.0, (seconds - from) / (to - from)) * step();
  }
  /// Ticks from place to place: the second eighth of a swung beat has no sixteenths.
  int step() const {
    if (m_reading.feel == rhythm::Feel::swing) return kHalfOfBeat;
    if (m_reading.feel == rhythm::Feel::triplets) return kTicksOfBeat / 3;
    return m_reading.metre.compound ? kTicksOfBeat / 6 : kTicksOfBeat / 4;
  }

 private:
  void add(std::size_t beat, int part) {
    const double from = m_reading.beats[beat], length = m_reading.beats[beat + 1] - from;
    const bool isSwung = m_reading.feel == rhythm::Feel::swing && part == kHalfOfBeat;
    const double share = isSwung ? m_reading.swingRatio : static_cast<double>(part) / kTicksOfBeat;
    const VoicePlace::Kind kind = part == 0             ? VoicePlace::Kind::onBeat
                                  : part == kHalfOfBeat ? VoicePlace::Kind::onHalf
                                                        : VoicePlace::Kind::between;
    const int tick = (static_cast<int>(beat) - static_cast<int>(m_reading.firstBar)) * kTicksOfBeat;
    m_places.push_back({from + share * length, kind, chordAt(tick + part)});
  }

  unsigned chordAt(int tick) {
    const auto& spans = m_reading.chords;
    while (m_span < spans.size() && spans[m_span].to <= tick) ++m_span;
    return m_span < spans.size() && spans[m_span].from <= tick ? spans[m_span].pitchClasses : 0;
  }

  const Reading& m_reading;
  std::size_t m_span = 0;
  std::vector<VoicePlace> m_places;
};

std::vector<Note> notesOf(const chords::FoundVoice& found, const VoiceGrid& grid, int raised) {
  std::vector<Note> notes;
  for (const chords::VoiceNote& each : found.notes) {
    Note note;
    note.onset = std::max(0.0, grid.secondsAt(each.from));
    note.end = grid.secondsAt(each.to);
    note.pitch = each.pitch + raised;
    note.strength = kStrengthOfVoice;
    note.probability = each.probability;
    note.amplitude = kLoudnessOfVoice;
    notes.push_back(note);
  }
  return notes;
}

/// Whole octaves, so that the lowest tone is on the guitar.
int raisedFor(const chords::FoundVoice& found, const VoiceGuitar& guitar) {
  constexpr int kOctave = 12;
  const int lowest = std::ranges::min(found.notes, {}, &chords::VoiceNote::pitch).pitch;
  const int open = std::ranges::min(guitar.open) + guitar.options.capo;
  return lowest < open ? (open - lowest + kOctave - 1) / kOctave * kOctave : 0;
}

/// Lengths are written as those of a guitar's notes are; then ticks count from the first bar line.
void write(const chords::FoundVoice& found, const VoiceGrid& grid, const Reading& reading,
           HeardVoice& voice) {
  for (std::size_t i = 0; i < found.notes.size(); ++i)
    voice.events.push_back({{grid.tickAt(found.notes[i].from), 0}, {i}});
  voice.places.resize(voice.notes.size());
  const std::vector<int> division(reading.beats.size(), grid.step());
  rhythm::writeValues(voice.events, voice.places, voice.notes,
                      {reading.feel == rhythm::Feel::triplets || reading.metre.compound,
                       [&grid](double seconds) { return grid.tickOf(seconds); }, division});
  const int zero = static_cast<int>(reading.firstBar) * kTicksOfBeat;
  for (rhythm::Event& event : voice.events) event.place.tick -= zero;
  for (rhythm::Place& place : voice.places) place.tick -= zero;
}

HeardVoice heardVoice(chords::Voice which, const chords::BandSound& sound, const VoiceGrid& grid,
                      const Reading& reading, const VoiceGuitar& guitar) {
  HeardVoice voice;
  voice.voice = which;
  const chords::FoundVoice found = chords::findVoice(which, sound, grid.places(), grid.end());
  voice.isClear = found.isClear;
  if (!found.isClear) return voice;
  voice.raised = raisedFor(found, guitar);
  voice.notes = notesOf(found, grid, voice.raised);
  fingering::Fingering(guitar.open, guitar.options).place(voice.notes);
  write(found, grid, reading, voice);
  return voice;
}

}  // namespace

std::vector<HeardVoice> hearVoices(const chords::BandSound& sound, const chords::Voices& voices,
                                   const Reading& reading, const VoiceGuitar& guitar) {
  std::vector<HeardVoice> heard;
  if (reading.beats.size() < 2) return heard;
  const VoiceGrid grid(reading);
  for (const chords::Voice each : voices)
    heard.push_back(heardVoice(each, sound, grid, reading, guitar));
  return heard;
}

}  // namespace korvel
