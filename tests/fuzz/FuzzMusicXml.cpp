// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a MusicXML score, and as one in an archive.
#include "exchange/musicxml/CompressedMusicXml.h"
#include "exchange/musicxml/MusicXmlReader.h"
#include "fuzz/FuzzPieces.h"

int LLVMFuzzerInitialize(int*, char***) { return 0; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const bool isArchive = size > 2 && bytes[0] == 'P' && bytes[1] == 'K';
  korvel::fuzz::readPiece(
      bytes, size,
      isArchive ? korvel::exchange::readCompressedMusicXml : korvel::exchange::readMusicXml);
  return 0;
}
