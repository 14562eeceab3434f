// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/BlockChords.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

using precise::BlockTone;
using precise::BlockTones;

/// Loudest first, as chords of a recording are.
void addTones(QBHold& hold, BlockTones tones) {
  std::ranges::stable_sort(tones, std::greater(), &BlockTone::amplitude);
  for (const BlockTone& tone : tones) hold.applyTone(tone.string, tone.fret, tone.amplitude);
}

const BlockTone* toneLike(const BlockTone& tone, const BlockTones& tones) {
  const auto found = std::ranges::find_if(tones, [&](const BlockTone& other) {
    return other.string == tone.string && other.fret == tone.fret;
  });
  return found == tones.end() ? nullptr : &*found;
}

/// A tone that rings on becomes softer from chord to chord, and one that is struck again does not:
/// this is what tells one from the other in a song. What is heard may differ a little, when tones
/// around it start or end.
void tellStrikesByAmplitude(std::vector<BlockTones>& blocks) {
  constexpr double kSofter = 0.999;
  for (std::size_t i = 1; i < blocks.size(); ++i)
    for (BlockTone& tone : blocks[i])
      if (const BlockTone* before = toneLike(tone, blocks[i - 1]))
        tone.amplitude = tone.struck ? std::max(tone.amplitude, before->amplitude)
                                     : std::min(tone.amplitude, kSofter * before->amplitude);
}

}  // namespace

BlockChords::BlockChords(std::vector<BlockTones> blocks) : m_blocks(std::move(blocks)) {
  tellStrikesByAmplitude(m_blocks);
  const auto sounds = [](const BlockTones& tones) { return !tones.empty(); };
  while (!m_blocks.empty() && !sounds(m_blocks.back())) m_blocks.pop_back();
  const auto first = std::ranges::find_if(m_blocks, sounds);
  m_first = m_next = static_cast<std::size_t>(first - m_blocks.begin());
}

QBChord* BlockChords::make(QBSong* song) {
  const std::size_t block = m_next++;
  const auto timestamp = static_cast<std::int64_t>(block * precise::kBlockSamples);
  QBChord* chord = QBTabMgr::of(*song).createChord(song, nullptr, timestamp);
  addTones(*chord->hold(), m_blocks.at(block));
  return chord;
}

}  // namespace korvel
