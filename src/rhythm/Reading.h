// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "music/Ticks.h"

namespace korvel::rhythm {

/// Places and lengths are counted in ticks.
using korvel::kTicksOfBeat;

/// How beats make bars.
struct Metre {
  int beats = 4;
  bool compound = false;  ///< Beats of three eighths: two of them are 6/8.

  int ticks() const { return beats * kTicksOfBeat; }
  bool operator==(const Metre&) const = default;
};

/// How beats are divided. Swing is written as straight eighths, of which the second one comes late.
enum class Feel { straight, swing, triplets };

/// A major or minor key.
struct Key {
  int tonic = 0;  ///< Pitch class, 0..11 with C = 0.
  bool minor = false;

  bool operator==(const Key&) const = default;
};

enum class Quality { major, minor, seventh, minorSeventh, majorSeventh };

/// One chord from a beat to a later one.
struct ChordSpan {
  int from = 0;  ///< In ticks, a whole beat; before `to`.
  int to = 0;
  int root = -1;  ///< Pitch class, 0..11 with C = 0; -1 where there is no chord.
  Quality quality = Quality::major;
  /// What sounds for a good part of it, bit n for pitch class n; 0 as long as nobody has asked.
  unsigned pitchClasses = 0;
  /// Of root and third, against all other chords; 1 as long as nobody has asked.
  double probability = 1;
  int bass = -1;  ///< Pitch class of the bass, where it was heard to be another than the root.

  bool operator==(const ChordSpan&) const = default;
};

/// Where a note is written, and how long.
struct Place {
  int tick = 0;
  int ticks = 0;  ///< At least 1.

  int end() const { return tick + ticks; }
  bool operator==(const Place&) const = default;
};

/// Notes that are struck together: a tone, a chord, a strum.
struct Event {
  /// It lasts to the next event, or as long as it is heard when a rest is written before that. A
  /// note of it may last longer.
  Place place;
  std::vector<std::size_t> notes;  ///< Indexes into the notes that were read.
};

/// How a recording is written down: where its beats lie, how they make bars, and where in them
/// each note stands. Tick 0 is the first bar line; a pick-up lies before it.
struct Reading {
  /// In seconds, ascending, from the first beat at or before all notes to the last one after them;
  /// empty for a recording without notes, otherwise at least two.
  std::vector<double> beats;
  std::size_t firstBar = 0;  ///< Which of the beats is tick 0; less than the metre's beats.
  Metre metre;
  Feel feel = Feel::straight;
  double swingRatio = 0.5;  ///< Where the second eighth of a beat comes, of the beat's length.
  std::optional<Key> key;
  std::vector<Event> events;      ///< By tick, no two at one.
  std::vector<Place> notes;       ///< Of each note that was read, in their order.
  std::vector<ChordSpan> chords;  ///< Without gaps, neighbours differ.

  /// Beats a minute, of the median beat; 0 without beats.
  double tempo() const;
  /// The time of a tick by the beats, which go on evenly before the first and after the last one.
  double secondsOf(double tick) const;
  double tickOf(double seconds) const;
};

/// Another way to read the same notes that is less probable, as an offer to the user.
struct Alternative {
  double tempo = 0;  ///< Beats a minute.
  Metre metre;
  Feel feel = Feel::straight;
  double behind = 0;  ///< How far its score is behind the best reading's; above 6 it is clear.

  /// Whether it may be meant as well as the best reading, as far as can be told.
  bool isNear() const { return behind < 2; }
};

/// What the user has said about how a recording is to be read; the rest is found.
struct Wishes {
  /// Beats a minute, within 8 % where such beats fit the notes; see hasWishedTempo.
  std::optional<double> tempo{};
  std::optional<Metre> metre{};
  std::optional<Feel> feel{};
  int finest = 16;                  ///< The shortest value that is written: 8 or 16.
  std::optional<double> barLine{};  ///< Seconds: there is one at the beat next to it.
  std::vector<double> taps{};       ///< Seconds, ascending: beats lie there, four of them at least.
  std::vector<double> fixedBeats{};  ///< Seconds: a beat that was dragged lies exactly there.

  bool operator==(const Wishes&) const = default;
};

/// Whether a reading has the tempo that was wished; true without such a wish. It has not where no
/// beats near that tempo fit the notes: then the next tempo that does is read.
bool hasWishedTempo(const Reading& reading, const Wishes& wishes);

/// The best reading, and what else it may be.
struct Rhythm {
  Reading reading;
  std::vector<Alternative> others;  ///< The best first, no two of one tempo, metre and feel.
  /// Too free to be read in a metre: the best reading is hardly better than none.
  bool isFree = false;

  /// How probable what is so much behind the best is among all that is offered; 0 for the best.
  double probabilityOf(double behind) const;
};

}  // namespace korvel::rhythm
