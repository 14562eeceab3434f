// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/Blocks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <optional>

#include "music/Neck.h"
#include "precise/Scale.h"
#include "precise/seeing/Window.h"

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

/// What is heard of a pitch within one block.
struct Share {
  int pitch = 0;
  Frame frames = 0;
  double amplitude = 0;  ///< Linear.
  bool struck = false;
  /// Of the longest note, which gives the place on the neck.
  Frame longest = 0;
  int string = 0;
  int fret = 0;
};

using Places = std::array<std::optional<Share>, kStrings>;

/// The pressed frets that a hand holds.
struct Grip {
  int lowest = 0;
  int highest = 0;
  /// Frets that a hand reaches above its lowest finger.
  static constexpr int kReach = 4;

  Grip(const Places& places, int capo) {
    for (const auto& share : places) {
      if (!share || share->fret <= capo) continue;
      lowest = lowest == 0 ? share->fret : std::min(lowest, share->fret);
      highest = std::max(highest, share->fret);
    }
  }

  bool reaches(int fret) const {
    return lowest == 0 || (fret >= highest - kReach && fret <= lowest + kReach);
  }
  /// In half frets, from its middle; where nothing is pressed, lower is nearer.
  int distance(int fret) const { return std::abs(2 * fret - lowest - highest); }
};

/// To a free string that plays it open or within reach of the hand, if there is one; of those to
/// the nearest.
void moveTo(Places& places, Share share, const OpenPitches& open, const FingeringOptions& options) {
  const Grip grip(places, options.capo);
  std::optional<int> nearest;
  for (std::size_t s = 0; s < places.size(); ++s) {
    const int fret = share.pitch - open[s];
    if (places[s] || fret < options.capo || fret > options.frets) continue;
    if (fret > options.capo && !grip.reaches(fret)) continue;
    if (nearest && grip.distance(fret) >= *nearest) continue;
    nearest = grip.distance(fret);
    share.string = static_cast<int>(s);
    share.fret = fret;
  }
  if (nearest) places[static_cast<std::size_t>(share.string)] = share;
}

/// Gathers the notes of one block.
class Block {
 public:
  void add(const Note& note, Frame frames, double amplitude, bool struck) {
    Share& share = m_pitches[static_cast<std::size_t>(note.pitch - Analysis::kLowestPitch)];
    share.pitch = note.pitch;
    share.frames += frames;
    share.amplitude = std::max(share.amplitude, amplitude);
    share.struck |= struck;
    if (frames <= share.longest) return;
    share.longest = frames;
    share.string = note.string;
    share.fret = note.fret;
  }

  /// Those that cover enough of the block, the longest first. length: frames of the block.
  std::vector<Share> shares(Frame length) const {
    std::vector<Share> shares;
    std::ranges::copy_if(m_pitches, std::back_inserter(shares),
                         [&](const Share& share) { return covers(share.frames, length); });
    std::ranges::stable_sort(shares, std::ranges::greater(), &Share::frames);
    return shares;
  }

 private:
  std::array<Share, kPitches> m_pitches{};
};

/// One a string. Those that were fingered there come before any that is moved.
Places placesOf(const std::vector<Share>& shares, const OpenPitches& open,
                const FingeringOptions& options) {
  Places places;
  std::vector<Share> others;
  for (const Share& share : shares) {
    auto& place = places[static_cast<std::size_t>(share.string)];
    if (place)
      others.push_back(share);
    else
      place = share;
  }
  for (const Share& share : others) moveTo(places, share, open, options);
  return places;
}

BlockTones tonesOf(const Places& places) {
  BlockTones tones;
  for (const auto& share : places)
    if (share)
      tones.push_back({share->string, share->fret, kFullScale * share->amplitude, share->struck});
  return tones;
}

/// Frames of the block, within the recording.
Window windowOf(Frame block, Frame frames) {
  return window(block * kFramesOfBlock, (block + 1) * kFramesOfBlock, frames);
}

/// A note from the block on that has its turn.
struct Playing {
  std::size_t note = 0;
  Window rest{};
  bool struck = false;
};

/// The notes that are fingered and sound at all, in the order in which their blocks come.
std::vector<Playing> playingOrder(const Findings& heard, Frame end) {
  std::vector<Playing> order;
  for (std::size_t i = 0; i < heard.notes.size(); ++i) {
    const Note& note = heard.notes[i];
    const Window whole = window(frameAt(note.onset), frameAt(note.end), end);
    if (note.string >= 0 && whole.begin < whole.end) order.push_back({i, whole});
  }
  std::ranges::stable_sort(order, {}, [](const Playing& each) { return each.rest.begin; });
  return order;
}

/// Adds what the note has in a block that ends with that frame, and takes that off it.
void add(Playing& playing, const Findings& heard, Frame end, Block& block) {
  const Window part{playing.rest.begin, std::min(playing.rest.end, end)};
  const Frame frames = part.end - part.begin;
  const bool strikes =
      !playing.struck && (covers(frames, kFramesOfBlock) || part.end == playing.rest.end);
  playing.struck |= strikes;
  playing.rest.begin = part.end;
  block.add(heard.notes[playing.note], frames, heard.curves.amplitude(playing.note, part), strikes);
}

}  // namespace

std::vector<BlockTones> blocksOf(const Analysis& analysis, std::span<const Note> notes,
                                 std::size_t samples, const OpenPitches& open,
                                 const FingeringOptions& options) {
  const Findings heard{{notes.begin(), notes.end()},
                       NoteCurves(analysis, notes),
                       static_cast<Frame>(analysis.frames)};
  std::vector<BlockTones> found;
  gatherBlocks(heard, samples, open, options, found).finish();
  return found;
}

platform::Slices gatherBlocks(const Findings& heard, std::size_t samples, const OpenPitches& open,
                              const FingeringOptions& options, std::vector<BlockTones>& found) {
  const std::size_t blocks = (samples + kBlockSamples - 1) / kBlockSamples;
  const Frame end = std::min(heard.frames, static_cast<Frame>(blocks) * kFramesOfBlock);
  const std::vector<Playing> order = playingOrder(heard, end);
  auto next = order.begin();
  std::vector<Playing> playing;
  for (std::size_t i = 0; i < blocks; ++i) {
    const Window whole = windowOf(static_cast<Frame>(i), heard.frames);
    for (; next != order.end() && next->rest.begin < whole.end; ++next) playing.push_back(*next);
    std::ranges::sort(playing, {}, &Playing::note);
    Block block;
    for (Playing& each : playing) add(each, heard, whole.end, block);
    std::erase_if(playing, [](const Playing& each) { return each.rest.begin == each.rest.end; });
    const auto shares = block.shares(whole.end - whole.begin);
    found.push_back(tonesOf(placesOf(shares, open, options)));
    co_yield static_cast<double>(i) / static_cast<double>(blocks);
  }
}

}  // namespace korvel::precise
