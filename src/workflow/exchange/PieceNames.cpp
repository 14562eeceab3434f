// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceNames.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "analysis/beats/SpanNames.h"
#include "exchange/Piece.h"
#include "model/book/QBHarmony.h"
#include "music/Neck.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
#include "rhythm/harmony/BeatChords.h"
#include "rhythm/harmony/KeyFinder.h"
#include "workflow/exchange/PieceBars.h"

namespace korvel {
namespace {

/// Shares of notes that are of the chords that names mean, or of others.
constexpr double kMostTones = 0.7;
constexpr double kFewTones = 0.5;

int keyNumber(int tonic, bool minor) { return pitchClass(tonic) + (minor ? kNotesPerOctave : 0); }

const exchange::Track& namedTrack(const exchange::Piece& piece, const exchange::Track& track) {
  const auto count = [](const exchange::Track& each) { return each.names.size(); };
  return track.names.empty() ? *std::ranges::max_element(piece.tracks, {}, count) : track;
}

/// Where beats begin, and where the last one ends.
std::vector<int> ticksOfBeats(const PieceBars& bars) {
  std::vector<int> ticks;
  for (const PieceBars::Bar& bar : bars.bars())
    for (int tick = bar.tick; tick < bar.end(); tick += kTicksOfBeat) ticks.push_back(tick);
  ticks.push_back(bars.end());
  return ticks;
}

std::size_t beatsOf(const PieceBars::Bar& bar) {
  return static_cast<std::size_t>((bar.ticks + kTicksOfBeat - 1) / kTicksOfBeat);
}

/// Chords mostly change on bar lines, by the bars that most of them are like.
rhythm::Bars barsToRead(const PieceBars& bars) {
  const auto& all = bars.bars();
  const bool hasPickUp = all.front().tick < 0;
  const std::size_t beats =
      std::clamp<std::size_t>(beatsOf(all[all.size() > 1 ? 1 : 0]), 1, rhythm::kMostBeats);
  return {beats, hasPickUp ? std::min(beatsOf(all.front()), beats - 1) : 0};
}

/// How far the names lie below what sounds.
int stepToSound(const exchange::Track& track) { return track.namesAreShapes ? track.capo : 0; }

/// By how much all strings are tuned higher than in Standard; 0 where not all are.
int tunedUp(const exchange::Track& track) {
  if (track.open.size() != kStrings) return 0;
  const int step = track.open.front() - kStandardPitches.front();
  for (std::size_t i = 0; i < kStandardPitches.size(); ++i)
    if (track.open[i] - kStandardPitches.at(i) != step) return 0;
  return step;
}

std::optional<ChordName> parsed(const QBTabMgr& db, const std::string& text) {
  try {
    return parseChordName(db, text);
  } catch (const NoChordName&) {
    return std::nullopt;
  }
}

}  // namespace

PieceNames::PieceNames(const QBTabMgr& db, const exchange::Piece& piece,
                       const exchange::Track& track, const TrackNotes& notes,
                       const PieceBars& bars) {
  const exchange::Track& named = namedTrack(piece, track);
  read(db, named, bars);
  if (named.namesAreShapes) moveWithStrings(named, bars);
  m_areWritten =
      std::ranges::any_of(m_names, [](const NamedFrom& each) { return each.name.has_value(); });
  find(db, notes, bars);
  if (piece.key) m_key = keyNumber(piece.key->tonic, piece.key->minor);
}

void PieceNames::read(const QBTabMgr& db, const exchange::Track& track, const PieceBars& bars) {
  std::map<std::string, std::optional<ChordName>> known;
  for (const exchange::ChordName& written : track.names) {
    auto [name, isNew] = known.try_emplace(written.text);
    if (isNew) name->second = nameOf(db, written.text);
    if (isNew && name->second)
      name->second->baseTone = pitchClass(name->second->baseTone + stepToSound(track));
    const int tick = bars.placeOf(written.at).tick;
    if (tick >= bars.end()) continue;
    if (m_names.empty() || tick > m_names.back().tick)
      m_names.push_back({tick, name->second});
    else
      m_names.back().name = name->second;
  }
}

/// In Eb and the like most people write what the hand holds, some what sounds: the notes tell.
void PieceNames::moveWithStrings(const exchange::Track& track, const PieceBars& bars) {
  const int step = tunedUp(track);
  if (step == 0 || shareOfTones(track, bars, 0) > kFewTones ||
      shareOfTones(track, bars, step) < kMostTones)
    return;
  for (NamedFrom& each : m_names)
    if (each.name) each.name->baseTone = pitchClass(each.name->baseTone + step);
}

/// Of the notes below names: how many are of the chord so many half tones higher.
double PieceNames::shareOfTones(const exchange::Track& track, const PieceBars& bars,
                                int step) const {
  int all = 0, ofChord = 0;
  for (const exchange::Note& note : track.notes) {
    const int tick = bars.placeOf(note.at).tick;
    const auto after = std::ranges::upper_bound(m_names, tick, {}, &NamedFrom::tick);
    if (after == m_names.begin() || !std::prev(after)->name) continue;
    const ChordName& name = *std::prev(after)->name;
    ++all;
    if (name.harmony->includesNote(pitchClass(name.baseTone + step), pitchClass(note.pitch)))
      ++ofChord;
  }
  return all == 0 ? 0 : static_cast<double>(ofChord) / all;
}

/// A bass that is not the root is not kept.
std::optional<ChordName> PieceNames::nameOf(const QBTabMgr& db, const std::string& text) {
  if (text.empty()) return std::nullopt;
  if (const auto name = parsed(db, text)) return name;
  const std::size_t slash = text.rfind('/');
  const auto name = slash == std::string::npos ? std::nullopt : parsed(db, text.substr(0, slash));
  ++m_left[name ? "basses of chords" : "names of chords that the chord book does not have"];
  return name;
}

void PieceNames::find(const QBTabMgr& db, const TrackNotes& notes, const PieceBars& bars) {
  const std::vector<int> ticks = ticksOfBeats(bars);
  const rhythm::Bars read = barsToRead(bars);
  rhythm::Reading reading;
  for (const int tick : ticks) reading.beats.push_back(notes.time().secondsOf(bars.grainsOf(tick)));
  reading.firstBar = read.first;
  reading.chords = rhythm::chordsOnBeats(reading.beats, read, notes.notes());
  if (const auto key = rhythm::keyOf(notes.notes(), reading.chords))
    m_key = keyNumber(key->tonic, key->minor);
  if (m_areWritten) return;
  m_names.clear();
  tellPitchClasses(notes.notes(), reading);
  for (const rhythm::ChordSpan& span : reading.chords) {
    const int beat = span.from / kTicksOfBeat + static_cast<int>(read.first);
    QBHarmony* harmony = span.root < 0 ? nullptr : harmonyOf(db, span);
    m_names.push_back({ticks[static_cast<std::size_t>(beat)],
                       harmony ? std::optional(ChordName{span.root, harmony}) : std::nullopt});
  }
}

}  // namespace korvel
