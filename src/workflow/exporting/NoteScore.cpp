// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "workflow/exporting/BeatGrid.h"

namespace korvel {
namespace {

using precise::Note;

constexpr double kSecondsOfMinute = 60;
constexpr double kStrumSeconds = 0.05;
constexpr int kDivision = 9600;

bool isFingered(const Note& note) {
  return note.string >= 0 && note.string < kStrings && note.fret >= 0;
}

/// Onsets that belong together count once.
std::vector<double> onsetsOf(std::span<const Note> notes) {
  std::vector<double> onsets;
  for (const Note& note : notes)
    if (onsets.empty() || note.onset > onsets.back() + kStrumSeconds) onsets.push_back(note.onset);
  return onsets;
}

/// Doubling the strength is a step of twenty; one of 1 is about mezzo forte.
int velocityOf(const Note& note) {
  constexpr double kMiddle = 64;
  constexpr double kOfDoubling = 20;
  const double strength = std::max(static_cast<double>(note.strength), 1e-3);
  return std::clamp(static_cast<int>(std::lround(kMiddle + kOfDoubling * std::log2(strength))), 20,
                    127);
}

/// The strongest note on each string, the lowest string first.
std::vector<ScoreTone> tonesOf(std::span<const Note> notes) {
  std::array<const Note*, kStrings> chosen{};
  for (const Note& note : notes) {
    if (!isFingered(note)) continue;
    const Note*& best = chosen.at(static_cast<std::size_t>(note.string));
    if (!best || note.strength > best->strength) best = &note;
  }
  std::vector<ScoreTone> tones;
  for (const Note* note : chosen)
    if (note) tones.push_back({note->string, note->fret, note->pitch});
  return tones;
}

int sixteenthAt(const BeatGrid& grid, double seconds) {
  return static_cast<int>(std::lround((seconds - grid.start) / grid.secondsOfSixteenth()));
}

/// Notes that sound as one chord; start and end in sixteenths of the grid.
struct Strike {
  int start;
  int end;
  std::vector<ScoreTone> tones;
};

/// It lasts for as long as it sounds, however its start was moved.
Strike strikeOf(std::span<const Note> notes, const BeatGrid& grid) {
  const int start = sixteenthAt(grid, notes.front().onset);
  const double seconds = std::ranges::max(notes, {}, &Note::end).end - notes.front().onset;
  const auto length = static_cast<int>(std::lround(seconds / grid.secondsOfSixteenth()));
  return {start, start + std::max(length, 1), tonesOf(notes)};
}

/// How many notes from the first on are one chord: by their strum, or by the grid.
std::size_t countOfChord(std::span<const Note> notes, const BeatGrid& grid) {
  const double strummed = notes.front().onset + kStrumSeconds;
  const int start = sixteenthAt(grid, notes.front().onset);
  const auto isLater = [&](const Note& note) {
    return note.onset > strummed && sixteenthAt(grid, note.onset) != start;
  };
  return static_cast<std::size_t>(std::ranges::find_if(notes, isLater) - notes.begin());
}

std::vector<Strike> strikesOf(std::span<const Note> notes, const BeatGrid& grid) {
  std::vector<Strike> strikes;
  while (!notes.empty()) {
    const std::size_t count = countOfChord(notes, grid);
    Strike strike = strikeOf(notes.first(count), grid);
    if (!strike.tones.empty()) strikes.push_back(std::move(strike));
    notes = notes.subspan(count);
  }
  return strikes;
}

}  // namespace

NoteScore::NoteScore(std::span<const Note> notes, std::optional<double> tempo)
    : m_notes(notes), m_tempo(tempo ? *tempo : assumedTempo(onsetsOf(notes))) {}

Score NoteScore::score(const std::string& title, const OpenPitches& open) const {
  Score score;
  score.title = title;
  score.openStrings.assign(open.begin(), open.end());
  score.tempo = m_tempo;
  std::vector<ScoreEvent>& events = score.bars.emplace_back().events;
  const std::vector<Strike> strikes = strikesOf(m_notes, gridOf(onsetsOf(m_notes), m_tempo));
  for (std::size_t i = 0; i < strikes.size(); ++i) {
    const auto& [start, end, tones] = strikes[i];
    const int next = i + 1 < strikes.size() ? strikes[i + 1].start : end;
    const int length = end >= next - 1 ? next - start : end - start;
    events.push_back({length * kUnitsOfSixteenth, tones, std::nullopt});
    if (start + length < next)
      events.push_back({(next - start - length) * kUnitsOfSixteenth, {}, std::nullopt});
  }
  return score;
}

MidiSequence NoteScore::midi(const std::string& title) const {
  MidiSequence sequence;
  sequence.title = title;
  sequence.division = kDivision;
  // The file tells the tempo in whole microseconds.
  sequence.quarterSeconds = std::round(kSecondsOfMinute / m_tempo * 1e6) / 1e6;
  const double ticksOfSecond = kDivision / sequence.quarterSeconds;
  for (const Note& note : m_notes) {
    const std::int64_t start = std::llround(note.onset * ticksOfSecond);
    const std::int64_t end =
        std::max<std::int64_t>(std::llround(note.end * ticksOfSecond), start + 1);
    sequence.notes.push_back({start, end - start, note.pitch, velocityOf(note)});
  }
  return sequence;
}

}  // namespace korvel
