// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/deck/PlayHead.h"
#include "platform/deck/SoundRun.h"

namespace korvel::platform {

/// Some frames of a recording as they are to be heard, and which place of the sequence they are of.
struct DeckBlock {
  static constexpr std::size_t kMostFrames = 1024;
  static constexpr std::size_t kChannels = 2;

  PlayHead::Span span;
  std::uint32_t seek = 0;  ///< How many seeks went before.
  std::array<float, kMostFrames * kChannels> sound{};

  std::span<float> samples() { return std::span(sound).first(span.frames * kChannels); }
  std::span<const float> samples() const { return std::span(sound).first(span.frames * kChannels); }
};

/// How a recording lies beside a sequence, in which a beat is a second of it.
struct DeckPlan {
  double secondOfBeat0 = 0;  ///< Of the recording.
  double from = 0;           ///< The beat from which on it is heard; what is before is silent.
  double to = 1e9;           ///< And up to which.
  std::optional<Rounds> rounds{};
};

/// Plays a recording block after block: at a rate and a pitch, from a place on, in loops. Wherever
/// it does not simply go on, as at the seam of a loop, the end of what came before goes over into
/// what comes within 12 milliseconds, so that nothing clicks and a note that begins there begins
/// whole. One thread at a time.
class DeckTape {
 public:
  /// Without a sound it plays silence; it must outlive this.
  DeckTape(const DecodedSound* sound, const DeckPlan& plan);
  DeckTape(const DeckTape&) = delete;
  DeckTape& operator=(const DeckTape&) = delete;

  // From the block after next on.
  void setRate(double rate);
  /// A factor, 1 as recorded.
  void setPitch(double pitch);
  /// At once: what came before does not go over into it.
  void seek(double beat, std::uint32_t number);

  /// The next block; false while not enough has been decoded for it.
  bool next(DeckBlock& block);

 private:
  static constexpr std::size_t kFadeFrames = 512;

  /// What sounds in a span: none where nothing does.
  struct Sounding {
    double frame;
    SoundRun::Way way;
  };

  std::optional<Sounding> soundingIn(const PlayHead::Span& span) const;
  bool isDecoded(const std::optional<Sounding>& sounding, std::size_t frames) const;
  bool load(DeckBlock& block, DeckBlock* before);
  bool goesOn(const PlayHead::Span& span, const std::optional<Sounding>& sounding) const;
  void turnTo(const std::optional<Sounding>& sounding, DeckBlock* before);
  void render(DeckBlock& block);

  const DecodedSound* m_sound;
  DeckPlan m_plan;
  PlayHead m_head;
  double m_pitch = 1;
  std::uint32_t m_seek = 0;
  std::array<std::unique_ptr<SoundRun>, 2> m_runs;
  std::size_t m_run = 0;                 ///< The one that plays.
  bool m_sounds = false;                 ///< Whether it does.
  std::optional<PlayHead::Span> m_span;  ///< That waits for what is decoded.
  std::unique_ptr<DeckBlock> m_held;     ///< Its end may still go over into something else.
  bool m_holds = false;
  std::unique_ptr<DeckBlock> m_loaded;
};

}  // namespace korvel::platform
