// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/Piece.h"

namespace korvel::exchange {

/// A note in the ticks of the file.
struct TickNote {
  std::int64_t start;
  std::int64_t end;  ///< After the start.
  int pitch;
  int velocity;
};

/// What one channel plays in a track.
struct ChannelNotes {
  std::vector<TickNote> notes;
  int program = -1;
  LeftCounts left{};
  bool isBent = false;  ///< While it is read: the wheel is not let go yet.
};

struct TickMeter {
  int beats;
  int beatType;  ///< A power of two up to 64.
};

/// What counts for all tracks, by the tick from which it does.
struct MidiSigns {
  std::map<std::int64_t, int> tempos;  ///< Microseconds of a quarter.
  std::map<std::int64_t, TickMeter> meters;
  std::map<std::int64_t, Key> keys;
  std::map<int, int> programs;  ///< By channel, of any track.
  LeftCounts left;              ///< As of a piece.
  std::int64_t end = 0;         ///< The last tick at which anything is.
};

struct MidiTrack {
  std::string name;
  std::map<int, ChannelNotes> channels;  ///< From 0 on; those that play anything.
};

/// Reads the events of a track, as far as they go, and adds to the signs what counts for all.
/// Throws a UserError for one that no program has written.
MidiTrack readMidiTrack(std::string_view events, MidiSigns& signs);

}  // namespace korvel::exchange
