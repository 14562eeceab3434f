// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongFingering.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "arrange/hands/HandGrip.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "fingering/Fingering.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "music/ChordStep.h"
#include "music/OpenStrings.h"
#include "music/Pitch.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/editing/fingers/PlayedNotes.h"

namespace korvel {
namespace {

/// A unison is the first tone to go where strings are short.
constexpr float kProbabilityOfUnison = 0.1F;
/// Farther than any tone lies off the neck.
constexpr int kMostOctaves = 10;

int highestFretOf(QBSong& song) {
  int highest = 0;
  for (const auto& chord : song.allChords())
    for (const auto& tone : tonesOf(*chord)) highest = std::max(highest, tone->fret());
  return highest;
}

/// The strings and frets of a song's tones, moved by half tones, and up to a fret where one is
/// given.
class Fingerer {
 public:
  Fingerer(QBSong& song, int halfTones, std::optional<int> highestFret = {})
      : m_halfTones(halfTones),
        m_isLimited(highestFret.has_value()),
        m_open(openStringsOf(&song).pitches()) {
    // A song that goes higher up the neck already may stay there.
    const int highest = halfTones == 0 ? highestFretOf(song) : 0;
    m_frets = highestFret.value_or(std::clamp(highest, fingering::FingeringOptions::kUsualFrets,
                                              fingering::FingeringOptions::kMostFrets));
    if (song.isOnBeats()) m_time.emplace(song, SongTime::Tempo::strict);
    for (const auto& chord : song.allChords()) read(*chord);
    fingering::Fingering(m_open, {.frets = m_frets}).place(m_notes, m_settled);
  }

  /// Gives the tones of the song's copy their places.
  void place(QBSong& copy) const {
    const auto& chords = copy.allChords();
    for (std::size_t i = 0; i < chords.size(); ++i) {
      moveTones(*chords[i], placesOf(m_chords[i]));
      if (!mayStay()) chords[i]->clearHandFret();  // it was of other notes
    }
  }

 private:
  /// A chord of the song, and its notes among those of the whole.
  struct Chord {
    Tones tones;
    std::vector<std::size_t> played;  ///< Those that sound, by rising pitch.
    std::size_t firstNote = 0;
  };

  void read(const QBChord& source) {
    Chord chord{tonesOf(source), {}, m_notes.size()};
    if (mayStay() && source.hasHandFret())
      m_settled.positions.push_back({onsetOfNext(), handOf(source)});
    for (std::size_t i = 0; i < chord.tones.size(); ++i)
      if (chord.tones[i]->isActive() && !isDoubledByFolding(chord.tones, i))
        chord.played.push_back(i);
    const auto pitch = [&](std::size_t i) { return pitchOf(*chord.tones[i]); };
    std::ranges::stable_sort(chord.played, {}, pitch);
    for (std::size_t i = 0; i < chord.played.size(); ++i) {
      const bool isUnison = i > 0 && pitch(chord.played[i]) == pitch(chord.played[i - 1]);
      addNote(*chord.tones[chord.played[i]], isUnison);
    }
    m_chords.push_back(std::move(chord));
  }

  void addNote(const QBTone& tone, bool isUnison) {
    const double onset = onsetOfNext();
    m_notes.push_back({.onset = onset,
                       .end = onset + secondsOf(tone),
                       .pitch = pitchOf(tone),
                       .strength = isUnison ? -1 : static_cast<float>(tone.amp()),
                       .probability = isUnison ? kProbabilityOfUnison : 1});
  }

  double onsetOfNext() const {
    if (!m_time) return static_cast<double>(m_chords.size()) * kSecondsOfChord;
    return m_time->secondsOf(m_time->tickOf(m_chords.size())) - m_time->secondsOf(m_time->begin());
  }

  double secondsOf(const QBTone& tone) const {
    if (m_time) return m_time->secondsOf(std::max(1, tone.ticks())) - m_time->secondsOf(0);
    const int steps = tone.duration() == QBTone::kUntoldDuration ? 1 : std::max(1, tone.duration());
    return steps * kSecondsOfChord;
  }

  int movedPitch(const QBTone& tone) const {
    return addNotes(addNotes(largeToneOf(tone), kMidiOfLargeTone0), m_halfTones);
  }

  /// Brought onto the neck by octaves when it is moved off it.
  int pitchOf(const QBTone& tone) const {
    int pitch = movedPitch(tone);
    if (m_isLimited) return nearestOnNeck(pitch);
    if (m_halfTones == 0) return pitch;
    while (pitch < std::ranges::min(m_open)) pitch += kNotesPerOctave;
    while (pitch > std::ranges::max(m_open) + m_frets) pitch -= kNotesPerOctave;
    return pitch;
  }
  /// In the nearest octave that has a place for it, the lower one of two; as it is where none has.
  int nearestOnNeck(int pitch) const {
    for (int octaves = 0; octaves <= kMostOctaves; ++octaves)
      for (const int direction : {-1, 1}) {
        const int moved = addNotes(pitch, direction * octaves * kNotesPerOctave);
        if (isOnNeck(moved)) return moved;
      }
    return pitch;
  }
  bool isOnNeck(int pitch) const {
    return std::ranges::any_of(m_open,
                               [&](int open) { return pitch >= open && pitch <= open + m_frets; });
  }
  bool isFolded(const QBTone& tone) const { return pitchOf(tone) != movedPitch(tone); }

  bool isDoubledByFolding(const Tones& tones, std::size_t i) const {
    if (!isFolded(*tones[i])) return false;
    for (std::size_t other = 0; other < tones.size(); ++other)
      if (other != i && tones[other]->isActive() && pitchOf(*tones[other]) == pitchOf(*tones[i]) &&
          (other < i || !isFolded(*tones[other])))
        return true;
    return false;
  }

  TonePlaces placesOf(const Chord& chord) const {
    const TonePlaces chosen = chosenFor(chord);
    TonePlaces places(chord.tones.size());
    for (std::size_t i = 0; i < chosen.size(); ++i) places[chord.played[i]] = chosen[i];
    return places;
  }

  TonePlaces chosenFor(const Chord& chord) const {
    const TonePlaces found = foundFor(chord);
    const TonePlaces along = movedAlong(chord);
    const HandGrip grip(found), before(along);
    if (before.isPlayable() && (!grip.isComplete() || grip.width() > before.width())) return along;
    if (grip.isComplete()) return found;
    const TonePlaces narrowest = HandGrip::narrowest(pitchesOf(chord), m_open, m_frets);
    if (HandGrip(narrowest).isComplete()) return narrowest;
    return mayStay() && before.hasOneToneAString() ? along : found;
  }

  /// Wherever the source has it.
  bool mayStay() const { return m_halfTones == 0 && !m_isLimited; }

  TonePlaces foundFor(const Chord& chord) const {
    TonePlaces places;
    for (const fingering::Note& note : notesOf(chord))
      places.push_back(note.string < 0 ? std::nullopt
                                       : std::optional(TonePlace{note.string, note.fret}));
    return places;
  }

  /// The source's own grip, up or down the neck.
  TonePlaces movedAlong(const Chord& chord) const {
    TonePlaces places;
    for (const std::size_t i : chord.played) {
      const QBTone& tone = *chord.tones[i];
      const TonePlace place{tone.string(), addNotes(tone.fret(), m_halfTones)};
      const bool isThere = place.string >= 0 && place.string < kStrings && place.fret >= 0 &&
                           (mayStay() || place.fret <= m_frets) && !isFolded(tone);
      places.push_back(isThere ? std::optional(place) : std::nullopt);
    }
    return places;
  }

  std::vector<int> pitchesOf(const Chord& chord) const {
    std::vector<int> pitches;
    for (const fingering::Note& note : notesOf(chord)) pitches.push_back(note.pitch);
    return pitches;
  }

  std::span<const fingering::Note> notesOf(const Chord& chord) const {
    return std::span(m_notes).subspan(chord.firstNote, chord.played.size());
  }

  const int m_halfTones;
  const bool m_isLimited;
  const OpenPitches m_open;
  std::optional<SongTime> m_time;  ///< Of a song on beats.
  int m_frets = fingering::FingeringOptions::kUsualFrets;
  fingering::Settled m_settled;
  std::vector<fingering::Note> m_notes;
  std::vector<Chord> m_chords;
};

void moveName(QBChord& chord, int halfTones) {
  if (!chord.harmony())
    readHarmony(chord);
  else if (chord.hasBaseTone())
    chord.setBaseTone(pitchClass(chord.baseTone() + halfTones));
}

}  // namespace

QBSong* fingeredForHand(QBSong& song, const std::string& title) {
  QBSong* copy = song.clone();
  Fingerer(song, 0).place(*copy);
  return finished(copy, title);
}

QBSong* transposedForHand(QBSong& song, int halfTones, const std::string& title) {
  QBSong* copy = song.clone();
  Fingerer(song, halfTones).place(*copy);
  for (const auto& chord : copy->allChords()) moveName(*chord, halfTones);
  moveKey(*copy, halfTones);
  return finished(copy, title);
}

QBSong* loweredForHand(QBSong& song, int halfTones, int highestFret, const std::string& title) {
  QBSong* copy = song.clone();
  Fingerer(song, halfTones, highestFret).place(*copy);
  if (halfTones != 0)
    for (const auto& chord : copy->allChords()) moveName(*chord, halfTones);
  moveKey(*copy, halfTones);
  return finished(copy, title);
}

}  // namespace korvel
