// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/open/OpenPositionFit.h"

#include <algorithm>

namespace korvel::fingering {
namespace {

/// The highest fret that the little finger reaches in open position.
constexpr int kWithinReach = 5;
/// The lowest string's frets up to this one have no other place: they tie a hand to the nut.
constexpr int kTied = 3;
/// More notes together are chords, which are held elsewhere than melodies are played.
constexpr std::size_t kMostVoices = 2;

constexpr double kSecondsBeside = 30;  ///< Seconds before and after.
constexpr double kMostSeconds = 1;     ///< Seconds of a note that count.
/// The share of time beyond the reach from which nothing speaks for the open position any more, and
/// the share of notes tied to the nut from which all does. Few wrong notes have to be forgiven.
constexpr double kShareBeyond = 0.03;
constexpr double kShareTied = 0.05;
/// Seconds from onset to onset that part one melody from the next.
constexpr double kPause = 2;

/// Seconds that the notes of melodies sound.
struct MelodyTime {
  double all = 0;
  double beyond = 0;  ///< The reach of the open position.
  double tied = 0;    ///< To the nut.

  void add(const MelodyTime& other, int sign) {
    all += sign * other.all;
    beyond += sign * other.beyond;
    tied += sign * other.tied;
  }
  double share(double part) const { return part / std::max(all, 1e-3); }
};

MelodyTime melodyTimeAt(std::size_t event, const Events& events, std::span<const Note> notes,
                        const OpenPitches& open, const Settled& settled) {
  MelodyTime time;
  if (events.notes(event).size() > kMostVoices) return time;
  for (const std::size_t i : events.notes(event)) {
    const Note& note = notes[i];
    const double seconds = std::min(kMostSeconds, note.end - note.onset);
    const int string = settled.stringOf(i);
    const int lowestFret =
        note.pitch - (string == Settled::kAnyString ? std::ranges::max(open)
                                                    : open[static_cast<std::size_t>(string)]);
    time.all += seconds;
    if (lowestFret > kWithinReach) time.beyond += seconds;
    if (note.pitch - std::ranges::min(open) <= kTied) time.tied += seconds;
  }
  return time;
}

/// One past the last event before a note beyond the reach, or a pause.
std::size_t endOfMelody(std::size_t from, const Events& events, std::span<const MelodyTime> all) {
  std::size_t end = from;
  while (end < all.size() && all[end].beyond <= 0 &&
         (end == from || events.onset(end) - events.onset(end - 1) < kPause))
    ++end;
  return end;
}

/// By event: how much of the melody around it is tied to the nut.
std::vector<double> tiesToTheNut(const Events& events, std::span<const MelodyTime> all) {
  std::vector<double> ties;
  while (ties.size() < all.size()) {
    const std::size_t end = endOfMelody(ties.size(), events, all);
    MelodyTime melody;
    for (std::size_t event = ties.size(); event < end; ++event) melody.add(all[event], 1);
    const double tie = std::min(1.0, melody.share(melody.tied) / kShareTied);
    ties.resize(end, tie);
    if (end < all.size() && all[end].beyond > 0) ties.push_back(0);
  }
  return ties;
}

}  // namespace

std::vector<double> openPositionFit(const Events& events, std::span<const Note> notes,
                                    const OpenPitches& open, const Settled& settled) {
  std::vector<MelodyTime> all;
  for (std::size_t event = 0; event < events.size(); ++event)
    all.push_back(melodyTimeAt(event, events, notes, open, settled));
  std::vector<double> fit = tiesToTheNut(events, all);
  MelodyTime around;
  std::size_t from = 0;
  std::size_t to = 0;
  for (std::size_t event = 0; event < events.size(); ++event) {
    const double now = events.onset(event);
    for (; to < events.size() && events.onset(to) <= now + kSecondsBeside; ++to)
      around.add(all[to], 1);
    for (; events.onset(from) < now - kSecondsBeside; ++from) around.add(all[from], -1);
    const double within = 1 - around.share(around.beyond) / kShareBeyond;
    fit[event] = std::max(fit[event], std::clamp(within, 0.0, 1.0));
  }
  return fit;
}

}  // namespace korvel::fingering
