// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvel {

/// Cuts a recording of single notes, one channel at 44100 samples a second, into its notes. Takes
/// it part by part and keeps only how loud it is, so that a long one costs little.
class NoteCutter {
 public:
  /// From the stroke to the silence, or to the next stroke, as samples of the recording.
  struct Stretch {
    std::size_t begin;
    std::size_t end;
    float loudest;  ///< Root of the mean square over a few hundredths of a second, 0..1.
  };

  /// The next samples of the recording.
  void add(std::span<const std::int16_t> samples);
  /// The stretches of what was added so far. What is much shorter than a note is left out.
  std::vector<Stretch> stretches() const;

 private:
  std::vector<float> m_levels;
  double m_energy = 0;      ///< Of the samples that do not make a level yet.
  std::size_t m_count = 0;  ///< How many these are.
};

/// The note that the samples hold, as a MIDI number from the beginning of a stretch; none when it
/// is no single clear one. Looks at the first quarter of a second after the stroke.
std::optional<int> singleNote(std::span<const std::int16_t> stretch);

}  // namespace korvel
