// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace korvel::exchange {

/// Places and lengths are counted in grains from the first bar, of which 128ths, triplets,
/// quintuplets and septuplets have whole numbers.
inline constexpr std::int64_t kGrainsOfQuarter = 20160;

/// A tone from where it is struck to where it ends, whatever ties it is written with.
struct Note {
  std::int64_t at = 0;
  std::int64_t length = 0;  ///< Above 0.
  int pitch = 0;            ///< MIDI number as it sounds, capo included.
  int string = -1;          ///< 0 is the lowest-sounding one; -1 where the file does not say.
  int fret = -1;            ///< Counted from the capo; -1 where the file does not say.
  int velocity = 0;         ///< 1 to 127; 0 where the file does not say.

  bool operator==(const Note&) const = default;
};

/// The name of a chord, which holds until the next one.
struct ChordName {
  std::int64_t at = 0;
  std::string text;  ///< As a player writes it, such as "F#m7/C#"; empty for "N.C.".

  bool operator==(const ChordName&) const = default;
};

/// Bars as they are played one after the other: repeats and endings are played out.
struct Bar {
  std::int64_t at = 0;
  std::int64_t length = 0;  ///< Less than the time signature says in a pick-up only.
  int beats = 4;
  int beatType = 4;

  bool operator==(const Bar&) const = default;
};

struct Tempo {
  std::int64_t at = 0;
  double quartersAMinute = 120;

  bool operator==(const Tempo&) const = default;
};

/// A major or minor key.
struct Key {
  int tonic = 0;  ///< Pitch class, 0..11 with C = 0.
  bool minor = false;

  bool operator==(const Key&) const = default;
};

/// What is not kept, and how many there are of it, such as "grace notes": 3.
using LeftCounts = std::map<std::string, int>;

/// What one player plays.
struct Track {
  std::string name;
  int program = -1;  ///< Of General MIDI, from 0 on; -1 where the file does not say.
  bool isDrums = false;
  /// MIDI numbers of the open strings, the lowest-sounding first, without the capo; empty where the
  /// file does not say.
  std::vector<int> open;
  int capo = 0;
  bool mayHaveCapo = false;      ///< The file does not say; its frets count from one, if there is.
  std::vector<Note> notes;       ///< By `at`, then by pitch.
  std::vector<ChordName> names;  ///< By `at`.
  bool namesAreShapes = false;   ///< They tell what a hand holds behind the capo, not what sounds.
  LeftCounts left;               ///< Of this track.

  /// Whether a guitarist would choose it: strings of a guitar, its program, or its name say so.
  bool isGuitar() const;
};

/// What a file of another program says, in the words that all formats have in common.
struct Piece {
  std::string title;
  std::string artist;
  std::optional<Key> key;
  std::optional<double> swing;  ///< Where the second eighth of a beat is played, of the beat.
  std::vector<Bar> bars;        ///< Without gaps from 0 on; empty where the file knows none.
  std::vector<Tempo> tempos;    ///< By `at`; the first one at 0.
  std::vector<Track> tracks;
  LeftCounts left;  ///< Of no track, such as directions.
};

}  // namespace korvel::exchange
