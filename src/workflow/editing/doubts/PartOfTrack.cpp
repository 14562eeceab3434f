// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/PartOfTrack.h"

#include <algorithm>

namespace korvel {

std::span<const float> PartOfTrack::readSamples() {
  while (m_at < m_to) {
    const std::span<const float> read = m_track.readSamples();
    if (read.empty()) break;
    const std::size_t begin = m_at;
    m_at += read.size();
    if (m_at <= m_from) continue;
    const std::size_t first = m_from > begin ? m_from - begin : 0;
    return read.subspan(first, std::min(read.size(), m_to - begin) - first);
  }
  m_at = m_to;
  return {};
}

double PartOfTrack::progress() const {
  return m_to == 0 ? 1 : std::min(static_cast<double>(m_at) / static_cast<double>(m_to), 1.0);
}

}  // namespace korvel
