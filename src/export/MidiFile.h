// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "export/score/Score.h"

namespace korvel {

/// Times are in ticks, of which a quarter has `MidiSequence::division`.
struct MidiNote {
  std::int64_t start = 0;
  std::int64_t length = 1;
  int pitch = 0;
  int velocity = 64;  ///< 1..127
  int release = 64;   ///< How fast it is let go, 0..127.

  bool operator==(const MidiNote&) const = default;
};

/// The tempo from a tick on.
struct MidiTempo {
  std::int64_t start = 0;
  double quarterSeconds = 1;  ///< Up to 16.7, to the microsecond.
};

/// The time signature from a tick on, at which a bar begins.
struct MidiMeter {
  std::int64_t start = 0;
  Meter meter;
};

/// What a standard MIDI file tells of one guitar.
struct MidiSequence {
  std::string title;
  std::string instrument = "Guitar";
  int division = 480;         ///< Ticks of a quarter, up to 32767.
  double quarterSeconds = 1;  ///< Up to 16.7, to the microsecond.
  Meter meter;
  std::optional<ScoreKey> key;    ///< Not told when it is not known.
  std::vector<MidiTempo> tempi;   ///< Changes after the beginning, by start.
  std::vector<MidiMeter> meters;  ///< Likewise.
  std::vector<MidiNote> notes;    ///< In any order.
};

/// The notes as one channel can play them, by start and pitch: of those of one pitch that begin
/// together the longest stays, and one that still sounds when its pitch is struck again ends there.
std::vector<MidiNote> playableNotes(std::vector<MidiNote> notes);

/// The bytes of a file of format 1: a track with title, tempi, time signatures and key, and one
/// with the playable notes on channel 1 as a guitar with steel strings. Pitches beyond MIDI's are
/// left out.
std::string midiFile(const MidiSequence& sequence);

}  // namespace korvel
