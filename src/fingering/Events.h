// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "fingering/Note.h"

namespace korvel::fingering {

/// The notes of a recording as a hand plays them: what starts together, and each strum, is one
/// event. Of more notes than strings the weakest are left out.
class Events {
 public:
  /// The notes may come in any order; they are not looked at again. Those with these indices are
  /// no part of any event.
  explicit Events(std::span<const Note> notes, std::span<const std::size_t> without = {});

  /// Indices of all notes but those, by onset.
  std::span<const std::size_t> byOnset() const { return m_byOnset; }
  /// How many events there are.
  std::size_t size() const { return m_events.size(); }
  /// Indices of the notes of an event, by rising pitch.
  std::span<const std::size_t> notes(std::size_t event) const;
  /// When the first of its notes starts, in seconds.
  double onset(std::size_t event) const { return m_events[event].onset; }
  /// Whether it is one note of a melody: most events around it have one note, too.
  bool isOfLine(std::size_t event) const;

 private:
  struct Event {
    std::size_t first = 0;  ///< In m_played.
    std::size_t size = 0;
    double onset = 0;
  };

  void takeAll(std::size_t notes, std::span<const std::size_t> without);

  std::vector<std::size_t> m_byOnset;
  std::vector<std::size_t> m_played;  ///< Event by event.
  std::vector<Event> m_events;
};

}  // namespace korvel::fingering
