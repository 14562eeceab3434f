// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/fingers/PlayedNotes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "music/ChordStep.h"
#include "music/OpenStrings.h"

namespace korvel {
namespace {

using fingering::FingeringOptions;
using fingering::Note;

bool isOnString(int string) { return string >= 0 && string < kStrings; }

/// How long a tone of a song of slices sounds.
double secondsOfSlices(const QBTone& tone) {
  const int steps = tone.duration() == QBTone::kUntoldDuration ? 1 : std::max(1, tone.duration());
  return steps * kSecondsOfChord;
}

/// A string each.
bool haveStrings(std::span<const Note> notes) {
  std::array<bool, kStrings> taken{};
  for (const Note& note : notes) {
    if (!isOnString(note.string)) return false;
    if (std::exchange(taken[static_cast<std::size_t>(note.string)], true)) return false;
  }
  return true;
}

}  // namespace

fingering::Position handOf(const QBChord& chord) {
  if (chord.handFret() == 0) return {};
  return {fingering::Position::Kind::around, chord.handFret()};
}

PlayedNotes::PlayedNotes(QBSong& song) : m_open(openStringsOf(&song).pitches()) {
  song.forgetCaches();
  read(song);
  findOptions(song);
}

void PlayedNotes::read(QBSong& song) {
  std::optional<SongTime> time;
  if (song.isOnBeats()) time.emplace(song, SongTime::Tempo::strict);
  for (const auto& source : song.allChords()) {
    const std::size_t index = m_chords.size();
    Chord chord{source, tonesOf(*source), {}, m_notes.size()};
    chord.onset = time ? time->secondsOf(time->tickOf(index)) - time->secondsOf(time->begin())
                       : static_cast<double>(index) * kSecondsOfChord;
    readTones(chord);
    for (std::size_t i = 0; i < chord.played.size(); ++i) {
      const QBTone& tone = *chord.tones[chord.played[i]];
      const double seconds = time ? time->secondsOf(std::max(1, tone.ticks())) - time->secondsOf(0)
                                  : secondsOfSlices(tone);
      m_notes[chord.first + i].end = chord.onset + seconds;
    }
    m_chords.push_back(std::move(chord));
  }
}

void PlayedNotes::readTones(Chord& chord) {
  for (std::size_t i = 0; i < chord.tones.size(); ++i)
    if (chord.tones[i]->isActive() && isOnString(chord.tones[i]->string()))
      chord.played.push_back(i);
  const auto pitch = [&](std::size_t i) {
    const QBTone& tone = *chord.tones[i];
    return addNotes(m_open[static_cast<std::size_t>(tone.string())], tone.fret());
  };
  std::ranges::stable_sort(chord.played, {}, pitch);
  for (const std::size_t i : chord.played) {
    const QBTone& tone = *chord.tones[i];
    m_notes.push_back({.onset = chord.onset,
                       .end = chord.onset,
                       .pitch = pitch(i),
                       .string = tone.string(),
                       .fret = tone.fret(),
                       .strength = static_cast<float>(tone.amp())});
  }
}

void PlayedNotes::findOptions(QBSong& song) {
  int highest = 0;
  int lowest = FingeringOptions::kHighestCapo;
  for (const Note& note : m_notes) {
    highest = std::max(highest, note.fret);
    lowest = std::min(lowest, note.fret);
  }
  m_options.frets =
      std::clamp(highest, FingeringOptions::kUsualFrets, FingeringOptions::kMostFrets);
  const int capo = capoOf(song);
  if (capo > 0 && capo <= lowest) m_options.capo = capo;
}

std::span<const Note> PlayedNotes::ofChord(std::size_t chord) const {
  return all().subspan(m_chords[chord].first, m_chords[chord].played.size());
}

std::vector<fingering::PositionMark> PlayedNotes::hands() const {
  std::vector<fingering::PositionMark> hands;
  for (const Chord& chord : m_chords)
    if (chord.chord->hasHandFret()) hands.push_back({chord.onset, handOf(*chord.chord)});
  return hands;
}

bool PlayedNotes::move(std::size_t index, std::span<const Note> placed) const {
  const Chord& chord = m_chords[index];
  const auto before = ofChord(index);
  const auto isThere = [](const Note& note, const Note& other) {
    return note.string == other.string && note.fret == other.fret;
  };
  if (std::ranges::equal(before, placed, isThere) || !haveStrings(placed)) return false;
  TonePlaces places;
  for (const auto& tone : chord.tones) places.push_back(TonePlace{tone->string(), tone->fret()});
  for (std::size_t i = 0; i < placed.size(); ++i)
    places[chord.played[i]] = TonePlace{placed[i].string, placed[i].fret};
  for (std::size_t i = 0; i < chord.tones.size(); ++i)
    if (!chord.tones[i]->isActive() &&
        std::ranges::find(placed, chord.tones[i]->string(), &Note::string) != placed.end())
      places[i].reset();
  moveTones(*chord.chord, places);
  return true;
}

int PlayedNotes::moveOrDrop(std::size_t index, std::span<const Note> placed,
                            const OpenPitches& open) const {
  const Chord& chord = m_chords[index];
  int dropped = 0;
  std::array<bool, kStrings> taken{};
  const auto take = [&taken](int string) {
    return isOnString(string) && !std::exchange(taken[static_cast<std::size_t>(string)], true);
  };
  TonePlaces places(chord.tones.size());
  for (std::size_t i = 0; i < placed.size(); ++i) {
    if (take(placed[i].string))
      places[chord.played[i]] = TonePlace{placed[i].string, placed[i].fret};
    else
      ++dropped;
  }
  for (std::size_t i = 0; i < chord.tones.size(); ++i) {
    const QBTone& tone = *chord.tones[i];
    if (tone.isActive() || !isOnString(tone.string())) continue;
    const auto string = static_cast<std::size_t>(tone.string());
    const int fret = addNotes(tone.fret(), m_open[string] - open[string]);
    if (fret >= 0 && take(tone.string())) places[i] = TonePlace{tone.string(), fret};
  }
  if (!chord.tones.empty()) moveTones(*chord.chord, places);
  return dropped;
}

}  // namespace korvel
