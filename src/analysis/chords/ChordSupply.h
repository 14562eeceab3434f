// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace korvel {

class QBChord;
class QBSong;

/// What was heard, as chords that can be made one after the other.
class ChordSupply {
 public:
  virtual ~ChordSupply() = default;

  virtual std::size_t size() const = 0;
  /// The next one, in the song, which is the same each time. Not more often than `size`.
  virtual QBChord* make(QBSong* song) = 0;
};

}  // namespace korvel
