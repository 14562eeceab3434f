// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/writing/WrittenValues.h"

#include <algorithm>
#include <cmath>

namespace korvel::rhythm {
namespace {

/// A rest is written when the notes stop so many ticks before the next event, and at less than this
/// share of the way.
constexpr int kLeastRest = 4;
constexpr double kSoundsOn = 0.72;
/// What the last event may last at most.
constexpr int kLongestLast = 4 * kTicksOfBeat;
/// A voice of its own is below A3, this long in ticks, and this much longer than the others.
constexpr int kAboveBassVoice = 57;
constexpr double kLeastBass = 21;
constexpr double kLongerThanOthers = 2.2;
constexpr std::size_t kMostOfTwoVoices = 3;

int roundedTo(int unit, double ticks) {
  return std::max(unit, unit * static_cast<int>(std::lround(ticks / unit)));
}

class Values {
 public:
  Values(std::span<const fingering::Note> notes, const ValueSettings& settings)
      : m_notes(notes), m_settings(settings) {}

  /// Which note of an event rings on below the others, and for how long; 0 without one.
  int bassLength(const Event& event, std::size_t& bass) const {
    if (event.notes.size() < 2 || event.notes.size() > kMostOfTwoVoices) return 0;
    bass =
        *std::ranges::min_element(event.notes, {}, [&](std::size_t i) { return m_notes[i].pitch; });
    if (m_notes[bass].pitch >= kAboveBassVoice) return 0;
    const double length = soundingFrom(event, bass);
    for (const std::size_t i : event.notes) {
      if (i != bass && length < kLongerThanOthers * soundingFrom(event, i)) return 0;
    }
    return length < kLeastBass ? 0 : roundedTo(kTicksOfBeat, length);
  }

  /// The length of an event of which the next one starts `room` ticks later.
  int length(const Event& event, int room, std::size_t withoutBass) const {
    double sounds = 0;
    for (const std::size_t i : event.notes) {
      if (i != withoutBass) sounds = std::max(sounds, soundingFrom(event, i));
    }
    if (room - sounds < kLeastRest || sounds >= kSoundsOn * room) return room;
    return std::min(room, roundedTo(unitAt(event.place.tick), sounds));
  }

 private:
  double soundingFrom(const Event& event, std::size_t note) const {
    return m_settings.tickOf(m_notes[note].end) - event.place.tick;
  }

  int unitAt(int tick) const {
    const auto beat = static_cast<std::size_t>(std::max(0, tick / kTicksOfBeat));
    const int step = beat < m_settings.division.size() ? m_settings.division[beat] : kTicksOfBeat;
    if (step == 3 || step == 2) return step;
    return m_settings.ternary ? 4 : 6;
  }

  std::span<const fingering::Note> m_notes;
  const ValueSettings& m_settings;
};

}  // namespace

void writeValues(std::span<Event> events, std::span<Place> places,
                 std::span<const fingering::Note> notes, const ValueSettings& settings) {
  const Values values(notes, settings);
  for (std::size_t i = 0; i < events.size(); ++i) {
    Event& event = events[i];
    std::size_t bass = notes.size();
    const int bassLength = values.bassLength(event, bass);
    if (bassLength == 0) bass = notes.size();
    const bool isLast = i + 1 == events.size();
    const int room = isLast ? kLongestLast : events[i + 1].place.tick - event.place.tick;
    event.place.ticks = values.length(event, room, bass);
    for (const std::size_t note : event.notes) places[note] = event.place;
    if (bassLength > 0) places[bass].ticks = bassLength;
  }
}

}  // namespace korvel::rhythm
