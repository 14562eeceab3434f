// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "music/ChordStep.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"
#include "precise/Analysis.h"
#include "precise/Findings.h"
#include "precise/Settings.h"

namespace korvel::precise {

/// Samples of a block: what one chord of a song stands for.
inline constexpr std::size_t kBlockSamples = kSamplesOfChord;

/// What sounds on a string in a block.
struct BlockTone {
  /// 0 is the lowest-sounding string; frets count from the nut.
  int string = 0;
  int fret = 0;
  /// As the magnitude that a windowed transform of the block's samples would have at the tone's
  /// frequency: 32768 * 16384 * 0.54 for a sine at full scale.
  double amplitude = 0;
  /// Struck here, rather than ringing on. A strike late in a block counts for the next one, when
  /// the note sounds less than 30 % of its first.
  bool struck = false;
};

/// By string, one tone on each at most.
using BlockTones = std::vector<BlockTone>;

/// The tones of every block of a recording, in order of time; the last block may be cut short.
/// A pitch is in a block when its notes cover at least 30 % of it. Of several on one string the one
/// that sounds longest stays there; the others go to free strings that play them open or within
/// reach of the hand, to the nearest, and are left out when there is none.
/// notes: with strings and frets; those without are left out. samples: length of the recording at
/// 44100 a second. open, options: of the guitar, as the notes were fingered.
std::vector<BlockTones> blocksOf(const Analysis& analysis, std::span<const Note> notes,
                                 std::size_t samples, const OpenPitches& open,
                                 const FingeringOptions& options);
/// The same of a recording of any length, a little at a time, into `found`; all that is named has
/// to live meanwhile.
platform::Slices gatherBlocks(const Findings& heard, std::size_t samples, const OpenPitches& open,
                              const FingeringOptions& options, std::vector<BlockTones>& found);

}  // namespace korvel::precise
