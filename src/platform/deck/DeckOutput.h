// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <span>

#include "platform/deck/DeckRing.h"
#include "platform/midi/PlayTimeline.h"
#include "platform/midi/SequenceRenderer.h"
#include "platform/midi/Synthesizer.h"

namespace korvel::platform {

/// How loud the recording and the guitar beside it are; 1 as they come.
struct DeckLevels {
  float recording = 1;
  float guitar = 1;
  bool apart = false;  ///< The recording is heard on the left and all else on the right.
};

/// Mixes a recording with the sequence that is played in step with it. It follows the places of the
/// blocks; when none waits it stands still until one does. Once made, nothing waits, locks, throws
/// or allocates, so that an audio callback can drive it.
class DeckOutput {
 public:
  /// All must outlive this. The guitar is the sequence's channel 0; clicks keep their loudness.
  DeckOutput(DeckRing& ring, SequenceRenderer& renderer, Synthesizer& synthesizer);

  /// For any thread.
  void setLevels(const DeckLevels& levels);

  /// The next frames, stereo, interleaved; firstFrame: their number since the start, for the
  /// timeline.
  void render(std::span<std::int16_t> samples, PlayTimeline& timeline, std::uint64_t firstFrame);

 private:
  static constexpr std::size_t kTailFrames = 256;

  void applyLevels();
  void leaveStale();
  void follow(const DeckRing::Piece& piece);
  void mix(std::span<std::int16_t> samples, std::span<const float> recording);

  DeckRing& m_ring;
  SequenceRenderer& m_renderer;
  Synthesizer& m_synthesizer;
  std::atomic<float> m_recording = 1;
  std::atomic<float> m_guitar = 1;
  std::atomic<bool> m_apart = false;

  // These belong to the audio thread.
  std::uint32_t m_seek = 0;
  float m_level = 1;    ///< Of the recording, where the last buffer ended.
  float m_volume = -1;  ///< Of the guitar, as the synthesiser knows it.
  bool m_isApart = false;
  std::array<float, kTailFrames * DeckBlock::kChannels> m_tail{};  ///< What fades out after a seek.
  std::size_t m_tailUsed = m_tail.size();
};

}  // namespace korvel::platform
