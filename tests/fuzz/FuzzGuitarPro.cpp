// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file of Guitar Pro, of every version, and the XML of the newer ones without the
// archive around it, whose sums would refuse every change.
#include "exchange/guitarpro/GpifReader.h"
#include "exchange/guitarpro/GuitarPro.h"
#include "exchange/guitarpro/SheetPlayer.h"
#include "fuzz/Fuzzing.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {
namespace {

Piece read(std::string_view bytes) {
  return bytes.starts_with('<') ? playedOut(guitarpro::GpifReader(bytes).read())
                                : readGuitarPro(bytes);
}

void requireOrder(const Piece& piece) {
  fuzz::require(!piece.bars.empty() && !piece.tempos.empty(), "it has bars and a tempo");
  for (const Track& track : piece.tracks)
    for (const Note& note : track.notes)
      fuzz::require(note.at >= 0 && note.length > 0 && note.pitch >= 0 && note.pitch <= 127,
                    "its notes can be played");
}

}  // namespace
}  // namespace korvel::exchange

int LLVMFuzzerInitialize(int*, char***) { return 0; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  try {
    korvel::exchange::requireOrder(
        korvel::exchange::read({reinterpret_cast<const char*>(bytes), size}));
  } catch (const korvel::platform::UserError&) {
    // what is wrong with the file is said
  }
  return 0;
}
