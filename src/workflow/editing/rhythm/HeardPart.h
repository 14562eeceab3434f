// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBSong;

/// Which part of a recording's notes a song is of.
class HeardPart {
 public:
  /// Notes by onset.
  HeardPart(QBSong& song, std::span<const fingering::Note> notes);

  /// Whether the song has these notes as they were heard, but for what its user changed: most of
  /// its tones were heard there and then, and most of what was heard is in it.
  bool isAsHeard() const { return m_asHeard; }

  /// Leaves what is of the part.
  void cut(std::vector<fingering::Note>& notes) const;
  void cut(rhythm::Reading& reading, std::span<const fingering::Note> notes) const;

 private:
  bool includes(double seconds) const { return seconds >= m_from && seconds < m_to; }
  void find(QBSong& song, std::span<const fingering::Note> notes);
  bool compare(QBSong& song, std::span<const fingering::Note> notes) const;

  double m_from = -std::numeric_limits<double>::infinity();  ///< Seconds.
  double m_to = std::numeric_limits<double>::infinity();
  bool m_asHeard = true;
};

}  // namespace korvel
