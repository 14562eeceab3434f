// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "music/Ticks.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBSong;

/// A bar of a song on beats. Ticks count from the first bar line (`SongTime.h`).
struct BarSpan {
  int begin = 0;  ///< Of its first chord; that is the bar line, but in a pick-up.
  int end = 0;
  int beat = 4;
  int beattype = 4;

  /// When it is full; 0 for a time signature that is none.
  int fullTicks() const { return ticksOfBar(beat, beattype); }
  bool isInCompoundTime() const { return isCompound(beat, beattype); }
};

/// Whether a chord's measure is in compound time.
bool isCompoundAt(const QBChord& chord);

/// The bars of a song on beats, as long as their chords are. A chord that is in no measure goes on
/// the bar before; a song without measures is taken to be in 4/4.
std::vector<BarSpan> barsOf(QBSong& song);

/// Bars of one metre that reach from a tick to another. The first one is a pick-up when it begins
/// before its bar line and others follow. std::domain_error for a metre without length.
std::vector<BarSpan> barsOfMetre(int beat, int beattype, int begin, int end);

/// Bars like the outer ones before and behind them, until they reach from a tick to another.
void extendBars(std::vector<BarSpan>& bars, int begin, int end);

/// A chord and the tick that it begins at.
struct PlacedChord {
  platform::Ref<QBChord> chord;
  int tick = 0;
};

/// Lays all chords of a song without measures into bars: each lasts until the next one begins, and
/// chords without tones, named like the one before, go on with it behind a bar line or begin a bar
/// that would not be full. Chords are in order of their ticks, which lie in the bars. Those without
/// a time of the beats get one between those of their neighbours. Tones stay as they are.
void fillBars(QBSong& song, std::span<const PlacedChord> chords, std::span<const BarSpan> bars);

/// No tone of a song on beats lasts beyond the next one on its string, nor beyond the song: tones
/// that were moved or joined may.
void endTonesAtNextStrike(QBSong& song);

}  // namespace korvel
