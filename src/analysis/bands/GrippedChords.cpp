// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/GrippedChords.h"

#include <algorithm>
#include <tuple>

#include "analysis/bands/BandGrips.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::ChordSpan;
using rhythm::Event;
using rhythm::Reading;

/// As loud as a guitar's that is struck well.
constexpr float kStrength = 1;
constexpr float kLoudness = 0.1F;

class Strummer {
 public:
  Strummer(const OpenPitches& open, HeardSound& heard)
      : m_open(open),
        m_heard(heard),
        m_reading(heard.rhythm.reading),
        m_bar(std::max(m_reading.metre.ticks(), 1)) {
    m_heard.notes.clear();
    m_reading.notes.clear();
    m_reading.events.clear();
  }

  void play(const ChordSpan& chord, const BandGrips::Frets& frets, double certainty) {
    for (int tick = chord.from; tick < chord.to;) {
      const int over = (tick % m_bar + m_bar) % m_bar;
      const int end = std::min(chord.to, tick + m_bar - over);
      strike({tick, end - tick}, frets, certainty);
      tick = end;
    }
  }

 private:
  void strike(const rhythm::Place& place, const BandGrips::Frets& frets, double certainty) {
    // What begins before the recording does is struck with its beginning.
    const double onset = std::max(0.0, m_reading.secondsOf(place.tick));
    const double end = m_reading.secondsOf(place.end());
    if (end <= onset) return;
    Event event{place, {}};
    std::vector<Note> notes;
    for (std::size_t string = 0; string < frets.size(); ++string) {
      if (frets[string] == BandGrips::kLeftAlone) continue;
      notes.push_back({onset, end, m_open[string] + frets[string], static_cast<int>(string),
                       frets[string], kStrength, static_cast<float>(certainty), kLoudness});
    }
    std::ranges::stable_sort(notes, {}, &Note::pitch);
    for (const Note& note : notes) {
      event.notes.push_back(m_heard.notes.size());
      m_heard.notes.push_back(note);
      m_reading.notes.push_back(place);
    }
    if (!event.notes.empty()) m_reading.events.push_back(std::move(event));
  }

  const OpenPitches& m_open;
  HeardSound& m_heard;
  Reading& m_reading;
  int m_bar;
};

}  // namespace

void gripChords(const OpenPitches& open, const fingering::FingeringOptions& options,
                HeardSound& heard) {
  const std::vector<ChordSpan>& chords = heard.rhythm.reading.chords;
  const std::vector<BandGrips::Frets> grips = BandGrips(open, options).of(chords);
  Strummer strummer(open, heard);
  for (std::size_t i = 0; i < chords.size(); ++i)
    strummer.play(chords[i], grips[i], chords[i].probability);
}

}  // namespace korvel
