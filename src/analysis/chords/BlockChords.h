// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "analysis/chords/ChordSupply.h"
#include "precise/Blocks.h"

namespace korvel {

/// A chord for each slice of a recording, from the first in which something sounds to the last.
/// Slices between them in which nothing does become empty chords, so that the song keeps time with
/// the recording. The time stamp of a chord is its slice's first sample, at 44100 a second. A tone
/// that is struck again is at least as loud as it was in the chord before, and softer when it rings
/// on.
class BlockChords final : public ChordSupply {
 public:
  explicit BlockChords(std::vector<precise::BlockTones> blocks);

  std::size_t size() const override { return m_blocks.size() - m_first; }
  QBChord* make(QBSong* song) override;

 private:
  std::vector<precise::BlockTones> m_blocks;
  std::size_t m_first = 0;
  std::size_t m_next = 0;
};

}  // namespace korvel
