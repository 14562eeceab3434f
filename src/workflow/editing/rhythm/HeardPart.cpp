// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/HeardPart.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/ChordStep.h"
#include "music/OpenStrings.h"
#include "music/Pitch.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {
namespace {

using fingering::Note;

/// A song that ends so much after or before its recording's notes, in seconds, is a part of it.
constexpr double kLessThanAll = 1;
/// How exactly a note belongs to a part.
constexpr double kNear = 0.05;
/// A slice has what sounds in it, and a chord on the beat what is struck around it.
constexpr double kAround = 0.2;
constexpr double kFewestHeard = 0.7;
constexpr double kFewestKept = 0.6;
/// So few notes tell nothing.
constexpr std::size_t kFewNotes = 4;

bool isOnNeck(const Note& note) { return note.string >= 0; }

double secondsOfStrike(const QBChord& chord) {
  return static_cast<double>(chord.timestamp()) / platform::kSampleRate;
}

/// Marks the notes that a tone may be, on whatever string it is played by now, and answers whether
/// there is one.
bool markHeard(const QBTone& tone, double seconds, std::span<const Note> notes, double longest,
               std::vector<bool>& marks) {
  const int pitch = addNotes(largeToneOf(tone), kMidiOfLargeTone0);
  const auto first = std::ranges::lower_bound(notes, seconds - longest - kAround, {}, &Note::onset);
  bool any = false;
  for (auto note = first; note != notes.end(); ++note) {
    if (note->onset > seconds + kSecondsOfChord + kAround) break;
    const bool isThere = note->string == tone.string() && note->fret == tone.fret();
    if (!isThere && note->pitch != pitch) continue;
    if (note->end + kAround < seconds) continue;
    marks[static_cast<std::size_t>(note - notes.begin())] = any = true;
  }
  return any;
}

bool isShare(std::size_t part, std::size_t whole, double least) {
  return static_cast<double>(part) >= least * static_cast<double>(whole);
}

}  // namespace

HeardPart::HeardPart(QBSong& song, std::span<const Note> notes) {
  find(song, notes);
  m_asHeard = compare(song, notes);
}

void HeardPart::find(QBSong& song, std::span<const Note> notes) {
  const auto first = std::ranges::find_if(notes, isOnNeck);
  if (first == notes.end()) return;
  double last = first->onset;
  for (const Note& note : notes)
    if (isOnNeck(note)) last = note.onset;
  double begin = std::numeric_limits<double>::infinity();
  double end = -begin;
  for (const auto& chord : song.allChords()) {
    const auto seconds = recordedSecondsOf(*chord);
    if (!seconds) continue;
    begin = std::min({begin, *seconds, chord->hasBeatTime() ? secondsOfStrike(*chord) : *seconds});
    end = std::max({end, *seconds, secondsOfStrike(*chord)});
  }
  if (begin > end) return;
  if (begin > first->onset + kLessThanAll) m_from = begin - kNear;
  if (end + kLessThanAll < last) m_to = end + (song.isOnBeats() ? kNear : kSecondsOfChord - kNear);
}

bool HeardPart::compare(QBSong& song, std::span<const Note> notes) const {
  double longest = 0;
  std::size_t heard = 0;
  for (const Note& note : notes) {
    longest = std::max(longest, note.end - note.onset);
    if (isOnNeck(note) && includes(note.onset)) ++heard;
  }
  if (heard < kFewNotes) return true;
  std::vector<bool> marks(notes.size());
  std::size_t unchanged = 0;
  std::size_t same = 0;
  std::size_t changed = 0;
  for (const auto& chord : song.allChords()) {
    if (!chord->hold()) continue;
    for (const QBTone* tone : chord->hold()->tones()) {
      const bool was = markHeard(*tone, secondsOfStrike(*chord), notes, longest, marks);
      ++(chord->isEdited() ? changed : unchanged);
      if (was && !chord->isEdited()) ++same;
    }
  }
  const auto kept = static_cast<std::size_t>(std::ranges::count(marks, true));
  return isShare(same, unchanged, kFewestHeard) && isShare(kept + changed, heard, kFewestKept);
}

void HeardPart::cut(std::vector<Note>& notes) const {
  std::erase_if(notes, [this](const Note& note) { return !includes(note.onset); });
}

void HeardPart::cut(rhythm::Reading& reading, std::span<const Note> notes) const {
  std::erase_if(reading.events, [&](const rhythm::Event& event) {
    return std::ranges::none_of(event.notes,
                                [&](std::size_t note) { return includes(notes[note].onset); });
  });
}

}  // namespace korvel
