// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as text tablature: notes and bars that fit each other, or a UserError.
#include <string_view>

#include "exchange/text/TabTextReader.h"
#include "fuzz/Fuzzing.h"
#include "platform/text/UserError.h"

namespace korvel {
namespace {

void check(const exchange::Piece& piece) {
  std::int64_t at = 0;
  for (const exchange::Bar& bar : piece.bars) {
    fuzz::require(bar.at == at && bar.length > 0, "bars follow each other");
    at += bar.length;
  }
  for (const exchange::Note& note : piece.tracks.at(0).notes) {
    fuzz::require(note.at >= 0 && note.length > 0, "a note has its time");
    fuzz::require(note.string >= 0 && note.string < 6, "a note is on a string");
    fuzz::require(note.fret >= 0 && note.fret <= 24, "a note is on the neck");
  }
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) { return 0; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  try {
    korvel::check(korvel::exchange::readTabText(text));
  } catch (const korvel::platform::UserError&) {
  }
  return 0;
}
