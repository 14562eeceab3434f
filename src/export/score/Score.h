// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel {

/// A tone on the neck and what it sounds.
struct ScoreTone {
  int string = 0;  ///< 0 is the lowest-sounding one.
  int fret = 0;    ///< Counted from the nut.
  int pitch = 0;   ///< MIDI number.

  bool operator==(const ScoreTone&) const = default;
};

/// The name of a chord.
struct ScoreHarmony {
  int root = 0;      ///< Pitch class, 0..11 with C = 0.
  std::string type;  ///< What a player writes behind the root, such as "m7".

  bool operator==(const ScoreHarmony&) const = default;
};

/// What sounds until the next event; a rest when it has no tones.
struct ScoreEvent {
  int duration = 1;              ///< In sixteenths, at least 1.
  std::vector<ScoreTone> tones;  ///< One on each string, the lowest string first.
  std::optional<ScoreHarmony> harmony;
};

/// The time signature of a score.
struct Meter {
  int beats = 4;
  int beatType = 4;

  /// Length of a bar in sixteenths.
  int sixteenths() const { return beats * (16 / beatType); }
  /// In beats of three, such as 6/8.
  bool isCompound() const { return beatType == 8 && beats % 3 == 0; }
  bool operator==(const Meter&) const = default;
};

/// A bar, or a passage: events that do not fill the bar are followed by rests, and those that it
/// cannot hold go on in further bars of the same meter.
struct ScoreBar {
  Meter meter;
  std::vector<ScoreEvent> events;
};

/// Music for one guitar, whatever it comes from: a song or a list of notes.
struct Score {
  std::string title;
  std::string instrument = "Guitar";
  std::vector<int> openStrings;  ///< MIDI numbers, the lowest-sounding string first.
  double tempo = 120;            ///< Quarters a minute.
  std::string program;           ///< What wrote it, with its version.
  std::string date;              ///< When, as "2026-11-21".
  std::vector<ScoreBar> bars;
};

}  // namespace korvel
