// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "exchange/Piece.h"
#include "fuzz/Fuzzing.h"
#include "platform/text/UserError.h"

namespace korvel::fuzz {

/// Reads the bytes: they are refused with a sentence, or what was read can be played.
inline void readPiece(const std::uint8_t* bytes, std::size_t size,
                      exchange::Piece (*read)(std::string_view)) {
  try {
    const exchange::Piece piece = read({reinterpret_cast<const char*>(bytes), size});
    std::int64_t end = 0;
    for (const exchange::Bar& bar : piece.bars) {
      require(bar.at == end && bar.length > 0 && bar.beats > 0, "bars follow each other");
      end += bar.length;
    }
    require(!piece.tempos.empty() && piece.tempos.front().at == 0, "there is a tempo");
    for (const exchange::Track& track : piece.tracks)
      for (const exchange::Note& note : track.notes) {
        require(note.at >= 0 && note.length > 0, "notes have a place and a length");
        require(note.pitch >= 0 && note.pitch <= 127, "notes have a pitch");
        require(note.string < static_cast<int>(track.open.size()), "strings are there");
      }
  } catch (const platform::UserError&) {
    // what is wrong with the file is said
  }
}

}  // namespace korvel::fuzz
