// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

struct BeatSearchSettings {
  Division division = Division::binary;
  /// The price of a change of tempo: of each step of 2.7 times. Rubato needs a soft one, loose
  /// timing a stiff one.
  double stiffness = 45;
  /// The range of lengths of a beat, in seconds; within 0.27 and 1.45.
  double shortest = 0.27;
  double longest = 1.45;
};

/// Finds the beats that explain the onsets of a recording best, by dynamic programming over all
/// times and lengths of a beat. It finds the grid on which notes stand, but hardly ever which of
/// its levels is the beat: twice, half or three times its tempo are to be tried.
///
/// Takes 12 kB of memory for each second of sound.
class BeatSearch {
 public:
  /// By time, one at least. They are read as long as the search lives. Each tap is a beat, too.
  BeatSearch(std::span<const Onset> onsets, const BeatSearchSettings& settings,
             std::span<const double> taps = {});

  platform::Slices run();
  /// From one before the first onset to one after the last one. After the run.
  const BeatTrack& track() const { return m_track; }

 private:
  static constexpr int kShortest = 27;  ///< In frames.
  static constexpr int kLongest = 145;
  static constexpr std::size_t kLengths = kLongest - kShortest + 1;
  using ByLength = std::array<float, kLengths>;
  using Indexes = std::array<std::uint8_t, kLengths>;

  /// An onset on the frames.
  struct Struck {
    int frame = 0;
    float weight = 0;
    std::size_t accent = 0;
  };

  void listStruck(std::span<const double> taps);
  void fillGains();
  float gain(int length, int distance, double accent, double scale) const;
  void priceChanges();
  ByLength& open(int frame) { return m_open[static_cast<std::size_t>(frame % kLongest)]; }
  void advance(int frame);
  ByLength endedAt(int frame) const;
  void spread(ByLength& best, Indexes& from) const;
  void startAt(int frame, ByLength& best, Indexes& from) const;
  void add(int frame, ByLength& best);
  void keepEnd(int frame, const ByLength& best);
  void traceBack();

  BeatSearchSettings m_settings;
  std::span<const Onset> m_onsets;
  double m_origin = 0;  ///< The time of frame 0.
  int m_first = 0;      ///< The frame of the first onset.
  int m_last = 0;
  std::size_t m_fewest = 0;  ///< The range of lengths, as indexes.
  std::size_t m_most = 0;
  std::vector<Struck> m_struck;
  std::size_t m_next = 0;         ///< The first onset that is not before the frame.
  std::vector<ByLength> m_gains;  ///< By accent and distance from the beat, in frames.
  ByLength m_heights{};           ///< Their distances are the prices of changes.
  ByLength m_toAny{};             ///< The logarithm of the sum over all lengths that may follow.
  std::vector<ByLength> m_open;   ///< The score with a beat at each of the last frames.
  std::vector<Indexes> m_from;    ///< The length before, by frame.
  float m_bestEnd = 0;
  int m_endFrame = -1;
  std::size_t m_endLength = 0;
  BeatTrack m_track;
};

}  // namespace korvel::rhythm
