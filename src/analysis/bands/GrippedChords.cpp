// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/GrippedChords.h"

#include <algorithm>
#include <utility>

#include "analysis/bands/BandGrips.h"
#include "analysis/beats/WrittenChords.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::ChordSpan;
using rhythm::Event;
using rhythm::Reading;

/// As loud as a guitar's that is struck well.
constexpr float kStrength = 1;
constexpr float kLoudness = 0.1F;

class BandStrummer {
 public:
  BandStrummer(const OpenPitches& open, const StrumPattern& pattern, HeardSound& heard)
      : m_open(open),
        m_pattern(pattern),
        m_heard(heard),
        m_reading(heard.rhythm.reading),
        m_metre(signatureOf(m_reading.metre)),
        m_bar(std::max(m_reading.metre.ticks(), 1)) {
    m_heard.notes.clear();
    m_reading.notes.clear();
    m_reading.events.clear();
  }

  void play(const ChordSpan& chord, const BandGrips::Frets& frets, double certainty) {
    for (int tick = chord.from; tick < chord.to;) {
      const int over = (tick % m_bar + m_bar) % m_bar;
      const int end = std::min(chord.to, tick + m_bar - over);
      const HeldPart part{m_metre.beat, m_metre.beattype,  tick - over, tick,
                          end,          tick == chord.from};
      for (const Strike& each : strikesOf(m_pattern, part, heldBy(frets)))
        strike(each, frets, certainty);
      tick = end;
    }
  }

 private:
  static unsigned heldBy(const BandGrips::Frets& frets) {
    unsigned strings = 0;
    for (std::size_t string = 0; string < frets.size(); ++string)
      if (frets[string] != BandGrips::kLeftAlone) strings |= 1U << string;
    return strings;
  }

  void strike(const Strike& struck, const BandGrips::Frets& frets, double certainty) {
    // What begins before the recording does is struck with its beginning.
    const double onset = std::max(0.0, secondsOf(struck.tick));
    if (secondsOf(struck.tick + struck.ticks) <= onset) return;
    Event event{{struck.tick, struck.ticks}, {}};
    const auto loudness = static_cast<float>(struck.loudness);
    for (const Strike::String& each : byPitch(struck, frets)) {
      const int fret = frets[static_cast<std::size_t>(each.string)];
      event.notes.push_back(m_heard.notes.size());
      m_heard.notes.push_back({onset, secondsOf(struck.tick + each.ticks),
                               pitchOf(each.string, frets), each.string, fret, kStrength * loudness,
                               static_cast<float>(certainty), kLoudness * loudness});
      m_reading.notes.push_back({struck.tick, each.ticks});
    }
    m_reading.events.push_back(std::move(event));
  }

  int pitchOf(int string, const BandGrips::Frets& frets) const {
    const auto at = static_cast<std::size_t>(string);
    return m_open[at] + frets[at];
  }

  std::vector<Strike::String> byPitch(const Strike& struck, const BandGrips::Frets& frets) const {
    std::vector<Strike::String> strings = struck.strings;
    std::ranges::stable_sort(
        strings, {}, [&](const Strike::String& each) { return pitchOf(each.string, frets); });
    return strings;
  }

  /// With the swing of the reading, which is not in its beats.
  double secondsOf(int tick) const {
    const int over = (tick % kTicksOfBeat + kTicksOfBeat) % kTicksOfBeat;
    if (m_reading.feel != rhythm::Feel::swing) return m_reading.secondsOf(tick);
    constexpr int kHalf = kTicksOfBeat / 2;
    const double late = m_reading.swingRatio;
    const double share =
        over <= kHalf ? late * over / kHalf : late + (1 - late) * (over - kHalf) / kHalf;
    return m_reading.secondsOf(tick - over + share * kTicksOfBeat);
  }

  const OpenPitches& m_open;
  const StrumPattern& m_pattern;
  HeardSound& m_heard;
  Reading& m_reading;
  TimeSignature m_metre;
  int m_bar;
};

}  // namespace

void gripChords(const OpenPitches& open, const fingering::FingeringOptions& options,
                const StrumPattern& pattern, HeardSound& heard) {
  const std::vector<ChordSpan>& chords = heard.rhythm.reading.chords;
  const std::vector<BandGrips::Frets> grips = BandGrips(open, options).of(chords);
  BandStrummer strummer(open, pattern, heard);
  for (std::size_t i = 0; i < chords.size(); ++i)
    strummer.play(chords[i], grips[i], chords[i].probability);
}

}  // namespace korvel
