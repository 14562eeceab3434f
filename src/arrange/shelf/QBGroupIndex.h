// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

/// Where one harmony occurs in a song: indexes of chords in rising order, with a cursor that
/// compares one occurrence with those after it.
class QBGroupIndex {
 public:
  static constexpr int kNoPosition = -1;

  explicit QBGroupIndex(std::string name) : m_name(std::move(name)) {}

  void addPosition(int index);
  /// The first position; the cursor goes to the second. kNoPosition when there is none.
  int firstPosition();
  /// The position at the cursor, which moves on; kNoPosition at the end.
  int nextPosition();
  void removeFirstPosition();

  std::string m_name;

 private:
  std::vector<int> m_positions;
  std::size_t m_cursor = 0;
};

}  // namespace korvel
