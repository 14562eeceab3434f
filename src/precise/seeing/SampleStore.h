// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/numerics/PageMemory.h"

namespace korvel::precise {

/// The samples of a recording, which may be an hour long: grows without moving what it holds, and
/// gives back the beginning while the rest is still read.
class SampleStore {
 public:
  void append(std::span<const float> samples);

  std::size_t size() const { return m_size; }

  /// Fills values with the samples from `first` on; 0 outside the recording and for what was
  /// released.
  void read(std::ptrdiff_t first, std::span<float> values) const;

  /// Gives back the memory of samples before `end`, as far as whole pieces go.
  void release(std::ptrdiff_t end);

 private:
  static constexpr std::size_t kPiece = std::size_t{1} << 16U;

  float* samplesOf(std::size_t piece) const { return static_cast<float*>(m_pieces[piece].data()); }

  std::vector<platform::PageMemory> m_pieces;
  std::size_t m_size = 0;
};

}  // namespace korvel::precise
