// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel {

/// Lengths in a score are counted in units, of which thirty-seconds and the triplets of quarters,
/// eighths and sixteenths have whole numbers.
inline constexpr int kUnitsOfQuarter = 24;
inline constexpr int kUnitsOfEighth = kUnitsOfQuarter / 2;
inline constexpr int kUnitsOfSixteenth = kUnitsOfQuarter / 4;
inline constexpr int kUnitsOfThirtySecond = kUnitsOfQuarter / 8;
inline constexpr int kUnitsOfWhole = kUnitsOfQuarter * 4;

/// A tone on the neck and what it sounds.
struct ScoreTone {
  int string = 0;  ///< 0 is the lowest-sounding one.
  int fret = 0;    ///< Counted from the nut.
  int pitch = 0;   ///< MIDI number.
  /// Whether it is not struck, but goes on from the event before in its voice; and whether it goes
  /// on in the next one.
  bool tiedBefore = false;
  bool tiedOn = false;

  bool operator==(const ScoreTone&) const = default;
};

/// The name of a chord.
struct ScoreHarmony {
  int root = 0;      ///< Pitch class, 0..11 with C = 0.
  std::string type;  ///< What a player writes behind the root, such as "m7".

  bool operator==(const ScoreHarmony&) const = default;
};

/// What sounds until the next event of its voice; a rest when it has no tones.
struct ScoreEvent {
  int duration = kUnitsOfSixteenth;  ///< At least 1.
  std::vector<ScoreTone> tones;      ///< One on each string, the lowest string first.
  std::optional<ScoreHarmony> harmony;
};

/// Words that are sung from a place on, in units from the first bar line.
struct ScoreWords {
  int unit = 0;
  std::string text;
};

/// The time signature of a score.
struct Meter {
  int beats = 4;
  int beatType = 4;

  /// Length of a bar.
  int units() const { return beats * (kUnitsOfWhole / beatType); }
  /// In beats of three, such as 6/8.
  bool isCompound() const { return beatType == 8 && beats % 3 == 0; }
  bool operator==(const Meter&) const = default;
};

/// A major or minor key.
struct ScoreKey {
  int tonic = 0;  ///< Pitch class, 0..11 with C = 0.
  bool minor = false;

  bool operator==(const ScoreKey&) const = default;
};

/// A bar, or a passage: events that do not fill the bar are followed by rests, and those that it
/// cannot hold go on in further bars of the same meter.
struct ScoreBar {
  Meter meter;
  std::vector<ScoreEvent> events;
  /// A second voice below the first one; it fills the bar, or is empty.
  std::vector<ScoreEvent> lower{};
  /// Length of a bar that is the end of one only, before the first whole one; 0 for whole bars.
  int pickUp = 0;
  std::optional<double> tempo{};  ///< Quarters a minute, when it is another from here on.
};

/// Music for one guitar, whatever it comes from: a song or a list of notes.
struct Score {
  std::string title;
  std::string instrument = "Guitar";
  std::vector<int> openStrings;  ///< MIDI numbers without a capo, the lowest-sounding string first.
  int capo = 0;                  ///< The fret that it is at, which no tone lies below; 0 for none.
  double tempo = 120;            ///< Quarters a minute.
  bool countsBeats = false;      ///< In compound time the tempo is shown in dotted quarters.
  std::optional<ScoreKey> key;   ///< Shown as of C and not used to spell when it is not known.
  /// Where the second eighth of a beat is played, as a share of the beat; none when it is not
  /// swung.
  std::optional<double> swing;
  std::string program;  ///< What wrote it, with its version.
  std::string date;     ///< When, as "2026-11-21".
  std::vector<ScoreBar> bars;
  std::vector<ScoreWords> words{};  ///< By place.

  /// As files count it, which is from the capo.
  int fretBehindCapo(const ScoreTone& tone) const { return tone.fret - capo; }
};

}  // namespace korvel
