// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "fingering/Events.h"
#include "fingering/HandChain.h"
#include "platform/loop/Slices.h"

namespace korvel::fingering {

/// What a hand does once it does again: the same pitch on the same string, the same chord in the
/// same grip, all of it near one place. After a pass, tells each event of a chain what those around
/// it do.
class Habits {
 public:
  /// Both have to live as long.
  Habits(const Events& events, std::span<const Note> notes);

  /// Sets `habit` and `expectAt` of the whole chain from what its last pass found.
  platform::Slices tell(HandChain& chain);

 private:
  using Pitches = std::array<std::int8_t, kStrings>;
  /// A note that is played, in order of events.
  struct Played {
    std::size_t note = 0;
    std::array<double, kStrings> strings{};  ///< How probable each string is.
  };

  Pitches pitchesOf(std::size_t event) const;
  void readStrings(std::size_t event, const HandChain& chain);
  void tellRepeats(std::size_t event, HandChain& chain) const;
  void tellChords(std::size_t event, HandChain& chain) const;
  void findHomes(HandChain& chain) const;
  double alikeAround(std::size_t played, std::size_t other) const;
  std::array<double, kStrings> usualStrings(std::size_t played) const;

  const Events& m_events;
  std::span<const Note> m_notes;
  std::vector<std::size_t> m_first;  ///< The first of m_played, by event.
  std::vector<Played> m_played;
  std::vector<std::size_t> m_placeOfPitch;                ///< In m_ofPitch, by m_played.
  std::map<int, std::vector<std::size_t>> m_ofPitch;      ///< Indices of m_played.
  std::vector<std::size_t> m_placeOfChord;                ///< In m_ofChord, by event.
  std::map<Pitches, std::vector<std::size_t>> m_ofChord;  ///< Events of two notes and more.
};

}  // namespace korvel::fingering
