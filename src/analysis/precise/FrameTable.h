// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cassert>
#include <cstddef>
#include <memory>
#include <span>

namespace korvel::precise {

/// A row of floats for each frame of a recording. Rows hold no values until they are written, and
/// take no memory until then, so that a table can be made while what it is computed from is given
/// back piece by piece.
class FrameTable {
 public:
  FrameTable() = default;
  FrameTable(std::size_t frames, std::size_t columns)
      : m_frames(frames),
        m_columns(columns),
        m_values(std::make_unique_for_overwrite<float[]>(frames * columns)) {}

  std::size_t frames() const { return m_frames; }
  std::size_t columns() const { return m_columns; }

  std::span<float> row(std::size_t frame) {
    assert(frame < m_frames);
    return {m_values.get() + frame * m_columns, m_columns};
  }
  std::span<const float> row(std::size_t frame) const {
    assert(frame < m_frames);
    return {m_values.get() + frame * m_columns, m_columns};
  }
  /// All rows, one after the other.
  std::span<const float> values() const { return {m_values.get(), m_frames * m_columns}; }

 private:
  std::size_t m_frames = 0;
  std::size_t m_columns = 0;
  std::unique_ptr<float[]> m_values;
};

}  // namespace korvel::precise
