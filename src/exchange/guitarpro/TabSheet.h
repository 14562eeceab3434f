// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/Piece.h"
#include "exchange/PlayedOrder.h"

namespace korvel::exchange::guitarpro {

inline constexpr int kMostVoices = 4;
inline constexpr int kMostStrings = 16;
inline constexpr int kMostTracks = 256;
inline constexpr int kHighestFret = 127;
inline constexpr int kUsualVelocity = 95;  ///< Of a note without a sign for its loudness.

/// A note head of a tablature. Its pitch follows from the strings of its track.
struct SheetNote {
  int string = 0;  ///< 0 is the lowest-sounding one.
  int fret = 0;    ///< Counted from the capo.
  int velocity = kUsualVelocity;
  bool isTied = false;  ///< It is not struck, but goes on from the note before on its string.
};

/// What is struck together; a rest without notes.
struct SheetBeat {
  double grains = 0;  ///< Its length, which uncommon tuplets have no whole number for.
  std::vector<SheetNote> notes;
  std::optional<std::string> chord;  ///< The name above it.
};

using SheetVoice = std::vector<SheetBeat>;

/// A bar of a track: what its voices play one after the other, from the beginning of the bar.
using SheetBar = std::vector<SheetVoice>;

struct SheetTrack {
  Track head;  ///< Without notes and names.
  std::vector<SheetBar> bars;
};

/// A tempo from a place in a bar on.
struct SheetTempo {
  double grains = 0;
  double quartersAMinute = 120;
};

/// What a bar is in all tracks.
struct MasterBar {
  BarSigns signs;
  int beats = 4;
  int beatType = 4;
  bool isPickUp = false;  ///< As long as what stands in it.
  std::vector<SheetTempo> tempos;

  double grains() const { return 4.0 * static_cast<double>(kGrainsOfQuarter) * beats / beatType; }
};

/// A tablature as it is written: what all versions of the format have in common.
struct TabSheet {
  Piece head;  ///< Title, artist, key, swing, and what is left out of no track.
  double quartersAMinute = 120;
  std::vector<MasterBar> bars;
  std::vector<SheetTrack> tracks;  ///< Each has as many bars.
};

// What is left out, by the names that users are told.
inline constexpr const char* kBends = "bends";
inline constexpr const char* kDeadNotes = "dead notes";
inline constexpr const char* kDirections = "directions";
inline constexpr const char* kFades = "fades";
inline constexpr const char* kGraceNotes = "grace notes";
inline constexpr const char* kHarmonics = "harmonics";
inline constexpr const char* kLegatos = "hammer-ons and pull-offs";
inline constexpr const char* kLetRing = "let ring";
inline constexpr const char* kNotesBeyondBars = "notes beyond their bars";
inline constexpr const char* kNotesWithoutStrings = "notes without strings";
inline constexpr const char* kPalmMutes = "palm mutes";
inline constexpr const char* kSlaps = "taps, slaps and pops";
inline constexpr const char* kSlides = "slides";
inline constexpr const char* kStaccatos = "staccatos";
inline constexpr const char* kStrokes = "strokes";
inline constexpr const char* kTexts = "texts";
inline constexpr const char* kTiesToNothing = "ties to nothing";
inline constexpr const char* kTremoloBars = "tremolo bars";
inline constexpr const char* kTremoloPicking = "tremolo picking";
inline constexpr const char* kTrills = "trills";
inline constexpr const char* kVibratos = "vibratos";

/// A name that is written above a beat as a piece has it.
inline std::string chordNameOf(std::string written) {
  return written == "N.C." || written == "NC" ? "" : written;
}

/// Of the eight signs from ppp to fff, counted from 1.
inline constexpr int velocityOf(int dynamic) { return 16 * dynamic - 1; }
inline constexpr int ghostly(int velocity) { return velocity * 2 / 3; }

}  // namespace korvel::exchange::guitarpro
