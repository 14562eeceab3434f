// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/TrackNotes.h"

#include <algorithm>
#include <span>

#include "exchange/Piece.h"
#include "fingering/Fingering.h"
#include "fingering/TuningFit.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using fingering::FingeringOptions;
using fingering::Settled;

constexpr int kUsualVelocity = 80;
/// A note of that velocity, which is as loud as most of a recording are.
constexpr float kUsualAmplitude = 0.1F;
constexpr double kShortestSounded = 0.001;  // seconds
/// Thirty-seconds are just not taken for one strum then.
constexpr double kFastestWritten = 140;
/// Enough to tell strings by.
constexpr std::size_t kMostNotesToTell = 1000;
constexpr std::ptrdiff_t kOften = 3;

OpenPitches pitchesOf(const std::vector<int>& open) {
  OpenPitches pitches{};
  std::ranges::copy_n(open.begin(), kStrings, pitches.begin());
  return pitches;
}

bool isOfSix(const exchange::Track& track) { return track.open.size() == kStrings; }

float strengthOf(int velocity) {
  return static_cast<float>(velocity > 0 ? velocity : kUsualVelocity) / kUsualVelocity;
}

}  // namespace

TrackNotes::TrackNotes(const exchange::Piece& piece, const exchange::Track& track, Times times,
                       const Guitar& guitar)
    : m_track(track),
      m_time(piece, times == Times::written ? kFastestWritten : PieceTime::kFastest),
      m_open(guitar.open.value_or(isOfSix(track) ? pitchesOf(track.open) : guitar.usual)),
      m_keepsPlaces(track.open.empty() || (isOfSix(track) && pitchesOf(track.open) == m_open)),
      m_options(guitar.fingering) {
  if (isOfSix(track) || track.capo > 0) m_options.capo = track.capo;
  m_options.capo = std::clamp(m_options.capo, 0, FingeringOptions::kHighestCapo);
  readNotes();
  if (!guitar.open) findStrings(guitar.lower);
  for (fingering::Note& note : m_notes) bringOntoNeck(note);
}

void TrackNotes::readNotes() {
  m_notes.reserve(m_track.notes.size());
  for (const exchange::Note& played : m_track.notes) {
    fingering::Note note;
    note.onset = m_time.secondsOf(static_cast<double>(played.at));
    note.end = std::max(m_time.secondsOf(static_cast<double>(played.at + played.length)),
                        note.onset + kShortestSounded);
    note.pitch = played.pitch;
    note.strength = strengthOf(played.velocity);
    note.amplitude = kUsualAmplitude * note.strength;
    m_notes.push_back(note);
  }
}

/// For no other instrument. Those of them that all notes are on: the ones that the piece lies on
/// clearly best, or else the first whose lowest string is the lowest note, which is struck open.
void TrackNotes::findStrings(const std::vector<OpenPitches>& lower) {
  const auto hasPlace = [](const exchange::Note& note) { return note.string >= 0; };
  const bool isOther = m_track.program >= 0 && !m_track.isGuitar();
  if (m_notes.empty() || isOther || !m_track.open.empty() ||
      std::ranges::any_of(m_track.notes, hasPlace))
    return;
  const int lowest = std::ranges::min(m_notes, {}, &fingering::Note::pitch).pitch - m_options.capo;
  if (std::ranges::min(m_open) <= lowest) return;
  std::vector<fingering::Strings> reaching;
  for (const OpenPitches& open : lower)
    if (std::ranges::min(open) <= lowest) reaching.push_back({open});
  const std::span notes(m_notes.data(), std::min(m_notes.size(), kMostNotesToTell));
  auto found = fingering::otherTuning(m_open, reaching, m_options, notes);
  if (!found && isStruckOften(lowest + m_options.capo)) {
    const auto isLowest = [&](const auto& each) { return std::ranges::min(each.open) == lowest; };
    const auto tuned = std::ranges::find_if(reaching, isLowest);
    if (tuned != reaching.end()) found = *tuned;
  }
  if (!found) return;
  m_open = found->open;
  m_areStringsFound = true;
}

bool TrackNotes::isStruckOften(int pitch) const {
  return std::ranges::count(m_notes, pitch, &fingering::Note::pitch) >= kOften;
}

void TrackNotes::bringOntoNeck(fingering::Note& note) {
  const int lowest = std::ranges::min(m_open) + m_options.capo;
  const int highest = std::ranges::max(m_open) + FingeringOptions::kMostFrets;
  const int pitch = note.pitch;
  while (note.pitch < lowest) note.pitch += kNotesPerOctave;
  while (note.pitch > highest) note.pitch -= kNotesPerOctave;
  if (note.pitch != pitch) ++m_left["notes moved by octaves"];
}

/// The pitch is what is heard; a string that cannot sound it is not the one that was meant. Of
/// strings that the file does not tune the fret has to be right, too.
std::optional<int> TrackNotes::stringOf(std::size_t note) const {
  const int string = m_track.notes[note].string;
  if (!m_keepsPlaces || string < 0 || string >= kStrings) return std::nullopt;
  const int fret = m_notes[note].pitch - m_open[static_cast<std::size_t>(string)];
  if (fret < m_options.capo || fret > FingeringOptions::kMostFrets) return std::nullopt;
  if (m_track.open.empty() && fret != m_track.notes[note].fret + m_options.capo)
    return std::nullopt;
  return string;
}

platform::Slices TrackNotes::placing() {
  Settled settled;
  bool areAllTold = true;
  for (std::size_t i = 0; i < m_notes.size(); ++i) {
    const std::optional<int> string = stringOf(i);
    areAllTold = areAllTold && string;
    settled.strings.push_back(string.value_or(Settled::kAnyString));
    takeString(m_notes[i], settled.strings.back());
    m_options.frets =
        std::max({m_options.frets, m_notes[i].fret, m_notes[i].pitch - std::ranges::max(m_open)});
  }
  if (areAllTold) co_return;
  const fingering::Fingering fingering(m_open, m_options);
  platform::Slices placing = fingering.placing(m_notes, settled);
  while (placing.next()) co_yield placing.done();
  for (std::size_t i = 0; i < m_notes.size(); ++i) {
    takeString(m_notes[i], settled.strings[i]);
    if (m_notes[i].string < 0) ++m_left["notes that no hand could play with the others"];
  }
}

void TrackNotes::takeString(fingering::Note& note, int string) const {
  if (string == Settled::kAnyString) return;
  note.string = string;
  note.fret = note.pitch - m_open[static_cast<std::size_t>(string)];
}

}  // namespace korvel
