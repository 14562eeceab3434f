// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace korvel::platform {

/// Makes sound slower or faster and keeps its pitch, or shifts that: two channels at kSampleRate.
/// What comes out at frame n is of frame n * rate of what went in, after those of the beginning
/// that only lead in. One thread at a time; waits for nothing, but costs a tenth of a core.
class Stretcher {
 public:
  static constexpr std::size_t kChannels = 2;
  /// Most frames that are put at a time.
  static constexpr std::size_t kMostFrames = 512;

  Stretcher();
  Stretcher(const Stretcher&) = delete;
  Stretcher& operator=(const Stretcher&) = delete;
  ~Stretcher();

  /// Begins anew. rate: 0.5 is half as fast; pitch: 2 is an octave up.
  void begin(double rate, double pitch);
  /// How many frames have to be put before the one that comes out first.
  std::size_t lead() const;

  /// Interleaved.
  void put(std::span<const float> samples);
  /// Frames that can be taken now.
  std::size_t available();
  /// At most so many.
  void take(std::span<float> samples);

 private:
  void drop();

  struct Engine;
  std::unique_ptr<Engine> m_engine;
  std::size_t m_toDrop = 0;  ///< Frames that come before the first one of those asked for.
};

}  // namespace korvel::platform
