// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/SongNotes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/editing/rhythm/HeardPart.h"

namespace korvel {
namespace {

using fingering::Note;
using platform::phrase;
using platform::UserText;

/// Notes of a strum lie so near to the chord that they are written in, in seconds.
constexpr double kNearChord = 0.25;
/// Of a slice, which begins with it.
constexpr double kOfSlice = 0.01;

struct Heard {
  rhythm::HeardNotes notes;
  rhythm::NoteCorrections corrections;
};

std::optional<Heard> heardOf(const QBSong& song) {
  if (!song.recording()) return {};
  auto notes = rhythm::heardNotes(song.recording()->notes());
  if (!notes) return {};
  auto corrections =
      song.hasCorrections() ? rhythm::noteCorrections(song.corrections()) : std::nullopt;
  return Heard{std::move(*notes), std::move(corrections).value_or(rhythm::NoteCorrections())};
}

/// The chords of a song by the time at which they are struck, and which of their tones are notes
/// already.
class StruckChords {
 public:
  explicit StruckChords(QBSong& song)
      : m_isOnBeats(song.isOnBeats()), m_open(openStringsOf(&song).pitches()) {
    song.forgetCaches();
    const auto& chords = song.allChords();
    for (std::size_t i = 0; i < chords.size(); ++i) {
      const auto written = recordedSecondsOf(*chords[i]);
      if (!written) continue;
      const bool hasTones = chords[i]->hold() && !chords[i]->hold()->tones().empty();
      const double struck = m_isOnBeats && hasTones ? static_cast<double>(chords[i]->timestamp()) /
                                                          platform::kSampleRate
                                                    : *written;
      m_all.push_back({struck, static_cast<int>(i), chords[i], {}});
    }
    sortByTime();
  }

  struct Place {
    int chord = -1;
    int string = -1;
    int fret = -1;
    bool isEdited = false;
  };

  /// The tone that a note is; chord is -1 for none.
  Place take(const Note& note) { return m_isOnBeats ? takeOnBeat(note) : takeOfSlices(note); }
  /// A tone of that pitch that is no other note, which is struck when a candidate would be.
  Place takeTyped(const Note& note) {
    return m_isOnBeats ? takeNear(note, SongNotes::kWithChord, true) : Place();
  }
  /// The chord with which a note would be struck, or in which it would begin.
  Place around(const Note& note) const {
    const std::size_t after = firstAfter(note.onset);
    std::optional<std::size_t> best;
    for (std::size_t i = after; i-- > 0 && m_all[i].seconds > note.onset - kNearChord;)
      if (isStruckWith(m_all[i], note) && (!best || distance(i, note) < distance(*best, note)))
        best = i;
    for (std::size_t i = after; i < m_all.size() && m_all[i].seconds < note.onset + kNearChord; ++i)
      if (isStruckWith(m_all[i], note) && (!best || distance(i, note) < distance(*best, note)))
        best = i;
    if (!best && after > 0) best = after - 1;
    if (!best) return {};
    return {m_all[*best].index, -1, -1, m_all[*best].chord->isEdited()};
  }

 private:
  struct Struck {
    double seconds;
    int index;
    platform::Ref<QBChord> chord;
    std::array<bool, kStrings> isTaken;
  };

  void sortByTime() {
    std::ranges::stable_sort(m_all, {}, &Struck::seconds);
    for (std::size_t i = 0; i < m_all.size(); ++i)
      if (hasTones(m_all[i])) m_sounding.push_back(i);
  }

  static bool hasTones(const Struck& struck) {
    return struck.chord->hold() && !struck.chord->hold()->tones().empty();
  }
  bool isStruckWith(const Struck& struck, const Note& note) const {
    return m_isOnBeats && hasTones(struck) &&
           std::abs(struck.seconds - note.onset) <= SongNotes::kWithChord;
  }
  double distance(std::size_t at, const Note& note) const {
    return std::abs(m_all[at].seconds - note.onset);
  }
  std::size_t firstAfter(double seconds) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(m_all, seconds, {}, &Struck::seconds) -
                                    m_all.begin());
  }

  /// The tone of that pitch, on the string of the note if there are several.
  const QBTone* toneIn(const Struck& struck, const Note& note, bool onlyFree) const {
    const QBTone* found = nullptr;
    for (const QBTone* tone : struck.chord->hold()->tones()) {
      if (tone->string() < 0 || tone->string() >= kStrings) continue;  // an odd store
      const auto string = static_cast<std::size_t>(tone->string());
      const bool isIt = m_open[string] + tone->fret() == note.pitch;
      if (!isIt || (onlyFree && struck.isTaken[string])) continue;
      if (!found || tone->string() == note.string) found = tone;
    }
    return found;
  }

  Place placeOf(Struck& struck, const QBTone& tone) {
    struck.isTaken[static_cast<std::size_t>(tone.string())] = true;
    return {struck.index, tone.string(), tone.fret(), struck.chord->isEdited()};
  }

  Place takeOnBeat(const Note& note) { return takeNear(note, kNearChord, true); }

  Place takeNear(const Note& note, double reach, bool onlyFree) {
    const auto first = std::ranges::lower_bound(
        m_sounding, note.onset - reach, {}, [this](std::size_t at) { return m_all[at].seconds; });
    std::optional<std::size_t> best;
    for (auto at = first; at != m_sounding.end(); ++at) {
      if (m_all[*at].seconds > note.onset + reach) break;
      if (best && distance(*at, note) >= distance(*best, note)) continue;
      if (toneIn(m_all[*at], note, onlyFree)) best = *at;
    }
    return best ? placeOf(m_all[*best], *toneIn(m_all[*best], note, onlyFree)) : Place();
  }

  /// A slice has all notes that sound in it, so that several may be one tone.
  Place takeOfSlices(const Note& note) {
    const auto first =
        std::ranges::lower_bound(m_sounding, note.onset - kSecondsOfChord + kOfSlice, {},
                                 [this](std::size_t at) { return m_all[at].seconds; });
    for (auto at = first; at != m_sounding.end() && m_all[*at].seconds < note.end; ++at)
      if (const QBTone* tone = toneIn(m_all[*at], note, false)) return placeOf(m_all[*at], *tone);
    return {};
  }

  bool m_isOnBeats;
  std::array<int, kStrings> m_open;
  std::vector<Struck> m_all;            ///< By time.
  std::vector<std::size_t> m_sounding;  ///< Those of m_all that have tones.
};

struct Listed {
  Note note;
  bool wasTaken;
};

/// All of the part of the recording that the song is of.
std::vector<Listed> listOf(const rhythm::HeardNotes& heard, const HeardPart& part) {
  std::vector<Listed> listed;
  const auto add = [&](std::vector<Note> notes, bool areTaken) {
    part.cut(notes);
    for (const Note& note : notes) listed.push_back({note, areTaken});
  };
  add(heard.taken, true);
  add(heard.doubtful, false);
  std::ranges::stable_sort(
      listed, {}, [](const Listed& each) { return std::tuple(each.note.onset, each.note.pitch); });
  return listed;
}

}  // namespace

SongNotes::SongNotes(QBSong& song, Arranged arranged) { find(song, arranged); }

std::optional<UserText> SongNotes::refusal(QBSong& song) {
  if (!song.recording())
    return UserText(phrase("Message",
                           "%1: it is not known what was heard in a recording of it; import the "
                           "recording again"),
                    song.title());
  if (song.recording()->isBand())
    return UserText(phrase("Message",
                           "%1: a band plays in its recording, of which chords were heard; change "
                           "or name its chords instead"),
                    song.title());
  const auto heard = heardOf(song);
  if (!heard)
    return UserText(phrase("Message",
                           "%1: what was heard in its recording cannot be read; hear the "
                           "recording again"),
                    song.title());
  if (!HeardPart(song, rhythm::notesBy(heard->notes, heard->corrections)).isAsHeard())
    return UserText(phrase("Message",
                           "%1: was arranged from what was heard; correct the song that it was "
                           "made from"),
                    song.title());
  return {};
}

void SongNotes::find(QBSong& song, Arranged arranged) {
  // The notes of a band's song are those of its grips, which nobody heard.
  if (arranged == Arranged::hasNone && song.recording() && song.recording()->isBand()) return;
  const auto heard = heardOf(song);
  if (!heard) return;
  const HeardPart part(song, rhythm::notesBy(heard->notes, heard->corrections));
  if (!part.isAsHeard() && arranged == Arranged::hasNone) return;
  StruckChords chords(song);
  for (const Listed& each :
       listOf(rhythm::withHeardAgain(heard->notes, heard->corrections.again), part)) {
    const rhythm::NoteVerdict* verdict = rhythm::verdictOn(heard->corrections, each.note);
    SongNote note{each.note, verdict ? verdict->isIn : each.wasTaken, each.wasTaken,
                  verdict && verdict->isLocked, -1};
    if (note.isIn && verdict && verdict->string >= 0) note.note.string = verdict->string;
    m_notes.push_back(note);
  }
  for (const bool isIn : {true, false})
    for (SongNote& note : m_notes) {
      if (note.isIn != isIn) continue;
      auto place = isIn ? chords.take(note.note) : chords.takeTyped(note.note);
      const bool isThere = place.chord >= 0;
      if (!isThere) place = chords.around(note.note);
      note.chord = place.chord;
      note.note.string = isThere ? place.string : -1;
      note.note.fret = isThere ? place.fret : -1;
      if (isThere != isIn && place.isEdited) note.isLocked = true;
      if (isIn && !isThere) note.isLeftOut = true;
      note.isIn = isThere;
    }
  for (std::size_t i = 0; i < m_notes.size(); ++i)
    if (m_notes[i].isIn) m_tones.emplace(std::pair(m_notes[i].chord, m_notes[i].note.string), i);
}

std::optional<std::size_t> SongNotes::noteOf(int chord, int string) const {
  const auto found = m_tones.find({chord, string});
  if (found == m_tones.end()) return {};
  return found->second;
}

}  // namespace korvel
