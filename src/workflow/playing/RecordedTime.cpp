// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/RecordedTime.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {

RecordedTime::RecordedTime(QBSong& song) {
  if (!song.recording() || song.allChords().empty()) return;
  if (!song.isOnBeats())
    followChords(song);
  else if (SongTime time(song); time.isAsRecorded())
    m_time = std::move(time);
}

/// One that was put in later has no time of its own.
void RecordedTime::followChords(QBSong& song) {
  for (const auto& chord : song.allChords()) {
    const auto seconds = recordedSecondsOf(*chord);
    if (m_seconds.empty() && !seconds) return;
    const double least = m_seconds.empty() ? 0 : m_seconds.back() + kSecondsOfChord / 2;
    const bool isOwn = seconds && *seconds > 0;
    if (isOwn && !m_seconds.empty() && *seconds < m_seconds.back()) return m_seconds.clear();
    m_seconds.push_back(isOwn ? std::max(*seconds, least) : least);
  }
  m_seconds.push_back(m_seconds.back() + kSecondsOfChord);
}

double RecordedTime::secondsOf(double step) const {
  if (m_time) return m_time->secondsOf(step + m_time->begin());
  const double last = static_cast<double>(m_seconds.size() - 1);
  if (step <= 0) return m_seconds.front() + step * kSecondsOfChord;
  if (step >= last) return m_seconds.back() + (step - last) * kSecondsOfChord;
  const auto chord = static_cast<std::size_t>(step);
  return std::lerp(m_seconds[chord], m_seconds[chord + 1], step - std::floor(step));
}

double RecordedTime::stepOf(double seconds) const {
  if (m_time) return m_time->tickOfSeconds(seconds) - m_time->begin();
  const auto after = std::ranges::upper_bound(m_seconds, seconds);
  if (after == m_seconds.begin()) return (seconds - m_seconds.front()) / kSecondsOfChord;
  const auto at = static_cast<std::size_t>(after - m_seconds.begin()) - 1;
  if (after == m_seconds.end())
    return static_cast<double>(at) + (seconds - m_seconds[at]) / kSecondsOfChord;
  return static_cast<double>(at) + (seconds - m_seconds[at]) / (m_seconds[at + 1] - m_seconds[at]);
}

}  // namespace korvel
