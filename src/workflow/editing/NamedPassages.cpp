// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/NamedPassages.h"

#include <algorithm>
#include <map>

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"

namespace korvel {
namespace {

using fingering::Note;

/// Of the time that all notes of a passage sound together; what has less of it only passes.
constexpr double kLeastShare = 0.1;
/// Seconds between a tone of one slice and the same of the next one, which is no stroke.
constexpr double kNoGap = 1e-3;

/// In a song of slices a tone that rings on is one of each slice.
std::vector<Note> joined(std::vector<Note> notes) {
  std::map<int, std::size_t> last;
  std::vector<Note> all;
  for (const Note& note : notes) {
    const auto before = last.find(note.pitch);
    if (before != last.end() && all[before->second].end + kNoGap >= note.onset) {
      all[before->second].end = std::max(all[before->second].end, note.end);
      continue;
    }
    last.insert_or_assign(note.pitch, all.size());
    all.push_back(note);
  }
  return all;
}

}  // namespace

NamedPassages::NamedPassages(const QBTabMgr& db, QBSong& song)
    : m_db(db), m_song(song), m_notes(song) {}

bool NamedPassages::isOneName(std::size_t chord, std::size_t other) const {
  const auto& chords = m_song.allChords();
  const QBChord& a = *chords[chord];
  const QBChord& b = *chords[other];
  return a.harmony() == b.harmony() && (!a.harmony() || a.baseTone() == b.baseTone());
}

ChordSpan NamedPassages::around(int chord) const {
  ChordSpan span{chord, chord};
  const auto isSame = [this, chord](int other) {
    return isOneName(static_cast<std::size_t>(chord), static_cast<std::size_t>(other));
  };
  while (span.first > 0 && isSame(span.first - 1)) --span.first;
  while (span.last + 1 < static_cast<int>(m_notes.chords()) && isSame(span.last + 1)) ++span.last;
  return span;
}

double NamedPassages::endOf(ChordSpan passage) const {
  const auto next = static_cast<std::size_t>(passage.last) + 1;
  if (next < m_notes.chords()) return m_notes.onsetOf(next);
  double end = m_notes.onsetOf(next - 1) + kSecondsOfChord;
  if (!m_song.isOnBeats()) return end;
  for (const Note& note : m_notes.ofChord(next - 1)) end = std::max(end, note.end);
  return end;
}

/// Those that are struck before and ring into it, too.
std::vector<Note> NamedPassages::notesOf(ChordSpan passage) const {
  const double from = m_notes.onsetOf(static_cast<std::size_t>(passage.first));
  const double to = endOf(passage);
  std::vector<Note> notes;
  for (const Note& note : m_notes.all()) {
    if (note.onset >= to) break;
    if (note.end > from) notes.push_back(note);
  }
  return m_song.isOnBeats() ? notes : joined(std::move(notes));
}

/// Bit n for pitch class n.
unsigned NamedPassages::mainNotes(ChordSpan passage) const {
  const double from = m_notes.onsetOf(static_cast<std::size_t>(passage.first));
  const double to = endOf(passage);
  Weights weights{};
  double all = 0;
  for (const Note& note : notesOf(passage)) {
    const double seconds = std::min(note.end, to) - std::max(note.onset, from);
    weights[static_cast<std::size_t>(pitchClass(note.pitch))] += seconds;
    all += seconds;
  }
  unsigned classes = 0;
  for (std::size_t i = 0; i < weights.size(); ++i)
    if (weights[i] > 0 && weights[i] >= kLeastShare * all) classes |= 1U << i;
  return classes;
}

std::vector<ChordSpan> NamedPassages::alike(ChordSpan passage) const {
  const unsigned wanted = mainNotes(passage);
  if (wanted == 0) return {passage};
  std::vector<ChordSpan> all;
  for (int chord = 0; chord < static_cast<int>(m_notes.chords());) {
    ChordSpan next{chord, around(chord).last};
    if (passage.contains(chord))
      next = passage;
    else if (chord < passage.first)
      next.last = std::min(next.last, passage.first - 1);
    if (passage.contains(chord) || mainNotes(next) == wanted) all.push_back(next);
    chord = next.last + 1;
  }
  return all;
}

std::vector<WeighedName> NamedPassages::offers(ChordSpan passage, std::size_t most) const {
  const std::array times{m_notes.onsetOf(static_cast<std::size_t>(passage.first)), endOf(passage)};
  const std::vector<Note> notes = notesOf(passage);
  return bestNames(m_db, rhythm::soundingBetween(times, notes).front(), most);
}

}  // namespace korvel
