// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as what a store keeps of a recording: they are refused, or what was read from them is
// written as the same bytes again.
#include <algorithm>
#include <span>

#include "fuzz/Fuzzing.h"
#include "rhythm/stored/HeardBytes.h"
#include "rhythm/stored/NoteCorrections.h"

namespace korvel {
namespace {

using Input = std::span<const std::byte>;

void readNotes(Input input) {
  if (const auto notes = rhythm::heardNotes(input))
    fuzz::require(std::ranges::equal(rhythm::bytesOf(*notes), input), "notes are kept as they are");
}

void readRhythm(Input input) {
  if (const auto read = rhythm::storedRhythm(input))
    fuzz::require(std::ranges::equal(rhythm::bytesOf(read->rhythm, read->wishes), input),
                  "a rhythm is kept as it is");
}

void readCorrections(Input input) {
  if (const auto read = rhythm::noteCorrections(input))
    fuzz::require(std::ranges::equal(rhythm::bytesOf(*read), input),
                  "corrections are kept as they are");
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) { return 0; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto input = std::as_bytes(std::span(bytes, size));
  korvel::readNotes(input);
  korvel::readRhythm(input);
  korvel::readCorrections(input);
  return 0;
}
