// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "precise/Note.h"

namespace korvel::precise {

/// The notes of a recording as a hand plays them: what starts together, and each strum, is one
/// event. Of more notes than strings the weakest are left out.
class Events {
 public:
  /// The notes may come in any order.
  explicit Events(std::span<const Note> notes);

  /// Indices of all notes, by onset.
  std::span<const std::size_t> byOnset() const { return m_byOnset; }
  /// Indices of the notes that are played, event by event, by rising pitch within each.
  std::span<const std::size_t> played() const { return m_played; }
  /// How many notes each event has.
  std::span<const std::size_t> sizes() const { return m_sizes; }
  /// Whether it is a melody: hardly two notes at once.
  bool areOneLine() const;

 private:
  std::vector<std::size_t> m_byOnset;
  std::vector<std::size_t> m_played;
  std::vector<std::size_t> m_sizes;
};

}  // namespace korvel::precise
