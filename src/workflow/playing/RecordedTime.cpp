// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/RecordedTime.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {

namespace {

// What is no rubato any more, nor a fermata: a stretch that takes so much longer than the song's
// pace gives it, or so much less, and so many beats of it.
constexpr double kFarLonger = 2.5;
constexpr double kFarShorter = 0.5;
constexpr double kBeatsMore = 2.5;
constexpr double kBeatsLess = 1;
constexpr double kSecondsOfMinute = 60;

/// From one chord whose time in the recording is known to the next.
struct PacedStretch {
  int chord;
  double ticks;
  double seconds;

  double pace() const { return seconds / ticks; }
  bool isOutOf(double usual) const {
    const double beatsMore = (seconds / usual - ticks) / kTicksOfBeat;
    return (pace() > kFarLonger * usual && beatsMore > kBeatsMore) ||
           (pace() < kFarShorter * usual && -beatsMore > kBeatsLess);
  }
};

std::vector<PacedStretch> stretchesOf(QBSong& song) {
  std::vector<PacedStretch> stretches;
  const TimedChords timed = timedChordsOf(song);
  std::optional<int> last;
  double ticks = 0;
  for (int i = 0; const TimedChords::Chord& chord : timed.chords) {
    if (chord.beatTime && (!last || ticks > 0)) {
      const double now = static_cast<double>(*chord.beatTime) / platform::kSampleRate;
      if (last) stretches.back() = {*last, ticks, now - stretches.back().seconds};
      stretches.push_back({i, 0, now});
      last = i;
      ticks = 0;
    }
    ticks += std::max(chord.ticks, 0);
    ++i;
  }
  if (last) stretches.pop_back();
  return stretches;
}

/// The last chord that has its beat, where what follows was struck at other times than the beats
/// before it say, as behind a bar that was taken out.
std::optional<int> lastInStep(QBSong& song, const SongTime& time) {
  const auto& chords = song.allChords();
  const auto hasBeat = [](const auto& chord) { return chord->hasBeatTime(); };
  const auto last = std::find_if(chords.rbegin(), chords.rend(), hasBeat).base();
  double tick = time.begin();
  for (auto chord = chords.begin(); chord != last; ++chord) tick += std::max((*chord)->ticks(), 0);
  for (auto chord = last; chord != chords.end(); ++chord) {
    const double struck = static_cast<double>((*chord)->timestamp()) / platform::kSampleRate;
    const double beats =
        (struck - time.secondsOf(tick)) * time.beatsPerMinuteAt(tick) / kSecondsOfMinute;
    if (struck > 0 && std::abs(beats) > kBeatsMore)
      return static_cast<int>(last - chords.begin()) - 1;
    tick += std::max((*chord)->ticks(), 0);
  }
  return {};
}

}  // namespace

std::optional<int> firstOutOfStep(QBSong& song) {
  if (!song.recording() || !song.isOnBeats()) return {};
  const SongTime time(song);
  if (!time.isAsRecorded()) return {};
  if (const auto chord = lastInStep(song, time)) return chord;
  const std::vector<PacedStretch> stretches = stretchesOf(song);
  if (stretches.empty()) return {};
  std::vector<double> paces;
  for (const PacedStretch& stretch : stretches) paces.push_back(stretch.pace());
  const auto middle = paces.begin() + std::ssize(paces) / 2;
  std::ranges::nth_element(paces, middle);
  const double usual = *middle;
  const auto found = std::ranges::find_if(
      stretches, [usual](const PacedStretch& stretch) { return stretch.isOutOf(usual); });
  return found == stretches.end() ? std::nullopt : std::optional(found->chord);
}

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
