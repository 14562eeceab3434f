// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a MIDI file.
#include "exchange/midi/MidiReader.h"
#include "fuzz/FuzzPieces.h"

int LLVMFuzzerInitialize(int*, char***) { return 0; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::fuzz::readPiece(bytes, size, korvel::exchange::readMidi);
  return 0;
}
