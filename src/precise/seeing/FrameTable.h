// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <span>

#include "platform/numerics/PageMemory.h"

namespace korvel::precise {

/// A row of floats for each frame of a recording. Rows are zeros until they are written, and take
/// no memory until then, so that a table can be made while what it is computed from is given back
/// piece by piece.
class FrameTable {
 public:
  FrameTable() = default;
  FrameTable(std::size_t frames, std::size_t columns)
      : m_frames(frames), m_columns(columns), m_memory(frames * columns * sizeof(float)) {}

  std::size_t frames() const { return m_frames; }
  std::size_t columns() const { return m_columns; }

  std::span<float> row(std::size_t frame) {
    assert(frame < m_frames);
    return {begin() + frame * m_columns, m_columns};
  }
  std::span<const float> row(std::size_t frame) const {
    assert(frame < m_frames);
    return {begin() + frame * m_columns, m_columns};
  }
  /// The row of the frame that lies nearest; a table without frames has none.
  std::span<const float> rowNear(std::ptrdiff_t frame) const {
    return row(static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(frame, 0, static_cast<std::ptrdiff_t>(m_frames) - 1)));
  }
  /// All rows, one after the other.
  std::span<const float> values() const { return {begin(), m_frames * m_columns}; }

  /// Gives back the memory of the rows before `end`, as far as whole pages go; they are zeros then.
  void release(std::size_t end) { m_memory.release(end * m_columns * sizeof(float)); }

 private:
  float* begin() const { return static_cast<float*>(m_memory.data()); }

  std::size_t m_frames = 0;
  std::size_t m_columns = 0;
  platform::PageMemory m_memory;
};

}  // namespace korvel::precise
