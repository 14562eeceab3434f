// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a ChordPro file: bars and chords that fit each other.
#include <string_view>

#include "fuzz/Fuzzing.h"
#include "model/store/QBTabMgr.h"
#include "support/store/ScratchStore.h"
#include "tab/chordpro/ChordProReader.h"

namespace korvel {
namespace {

void read(std::string_view text) {
  static const test::ScratchStore store;
  const PageSource song = readChordPro(QBTabMgr::db(), text).song;
  fuzz::require(song.bars.empty() == song.chords.empty(), "there are bars where there are chords");
  if (song.bars.empty()) return;
  int end = song.bars.front().tick;
  for (const PageSource::Bar& bar : song.bars) {
    fuzz::require(bar.tick == end && bar.ticks > 0, "bars follow each other");
    end += bar.ticks;
  }
  int tick = song.bars.front().tick;
  for (const PageSource::Chord& chord : song.chords) {
    fuzz::require(chord.tick >= tick && chord.ticks >= 0, "chords follow each other");
    fuzz::require(chord.root >= -1 && chord.root < 12, "a root is one of twelve notes");
    tick = chord.tick;
  }
  fuzz::require(tick < end, "chords are in bars");
  for (const PageSource::Words& words : song.words)
    fuzz::require(words.tick >= song.bars.front().tick && words.tick < end, "words are in bars");
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) {
  korvel::fuzz::workInMemory();
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::isChordPro({reinterpret_cast<const char*>(bytes), size});
  korvel::read({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
