// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Blocks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/precise/Scale.h"
#include "analysis/precise/Window.h"
#include "model/Neck.h"

namespace korvel::precise {
namespace {

constexpr double kLeastShare = 0.3;
constexpr Frame kFramesOfBlock = 32;
static_assert(kFramesOfBlock * kHop * 2 == kBlockSamples);

/// The sum of the Hamming window over the 16-bit samples of a block.
constexpr double kFullScale = 32768.0 * kBlockSamples * 0.54;

bool covers(Frame frames, Frame block) {
  return frames > 0 && static_cast<double>(frames) >= kLeastShare * static_cast<double>(block);
}

Frame frameAt(double seconds) {
  return static_cast<Frame>(std::lround(seconds * kFramesPerSecond));
}

/// What is heard of a pitch within one block.
struct Share {
  Frame frames = 0;
  float activation = 0;
  bool struck = false;
  /// Of the longest note, which gives the place on the neck.
  Frame longest = 0;
  int string = 0;
  int fret = 0;
};

/// Gathers the notes of one block.
class Block {
 public:
  void add(const Note& note, Frame frames, float activation, bool struck) {
    Share& share = m_pitches[static_cast<std::size_t>(note.pitch - Analysis::kLowestPitch)];
    share.frames += frames;
    share.activation = std::max(share.activation, activation);
    share.struck |= struck;
    if (frames <= share.longest) return;
    share.longest = frames;
    share.string = note.string;
    share.fret = note.fret;
  }

  /// length: frames of the block.
  BlockTones tones(const Analysis& analysis, Frame length) const {
    BlockTones tones;
    for (const Share* share : longestOfStrings(length))
      if (share)
        tones.push_back({share->string, share->fret,
                         kFullScale * analysis.amplitude(share->activation), share->struck});
    return tones;
  }

 private:
  std::array<const Share*, kStrings> longestOfStrings(Frame length) const {
    std::array<const Share*, kStrings> strings{};
    for (const Share& share : m_pitches) {
      if (!covers(share.frames, length)) continue;
      const Share*& chosen = strings[static_cast<std::size_t>(share.string)];
      if (!chosen || share.frames > chosen->frames) chosen = &share;
    }
    return strings;
  }

  std::array<Share, kPitches> m_pitches{};
};

/// Frames of the block, within the recording.
Window windowOf(Frame block, Frame frames) {
  return window(block * kFramesOfBlock, (block + 1) * kFramesOfBlock, frames);
}

void add(const Note& note, const Analysis& analysis, std::span<Block> blocks) {
  const auto end = std::min(static_cast<Frame>(analysis.frames),
                            static_cast<Frame>(blocks.size()) * kFramesOfBlock);
  const Window whole = window(frameAt(note.onset), frameAt(note.end), end);
  const auto activation = [&](Frame t) {
    return analysis.activation(static_cast<std::size_t>(t), note.pitch);
  };
  bool struck = false;
  for (Window part = whole; part.begin < whole.end; part.begin = part.end) {
    const Frame block = part.begin / kFramesOfBlock;
    part.end = std::min(whole.end, windowOf(block, end).end);
    const Frame frames = part.end - part.begin;
    const bool strikes = !struck && (covers(frames, kFramesOfBlock) || part.end == whole.end);
    struck |= strikes;
    blocks[static_cast<std::size_t>(block)].add(
        note, frames, static_cast<float>(largest(part, activation)), strikes);
  }
}

}  // namespace

std::vector<BlockTones> blocksOf(const Analysis& analysis, std::span<const Note> notes,
                                 std::size_t samples) {
  std::vector<Block> blocks((samples + kBlockSamples - 1) / kBlockSamples);
  for (const Note& note : notes)
    if (note.string >= 0) add(note, analysis, blocks);
  std::vector<BlockTones> tones;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const Window whole = windowOf(static_cast<Frame>(i), static_cast<Frame>(analysis.frames));
    tones.push_back(blocks[i].tones(analysis, whole.end - whole.begin));
  }
  return tones;
}

}  // namespace korvel::precise
