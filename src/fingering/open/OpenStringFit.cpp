// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/open/OpenStringFit.h"

#include <algorithm>
#include <array>

namespace korvel::fingering {
namespace {

constexpr double kSecondsAround = 30;  ///< Seconds before and after.
constexpr double kLongest = 1;         ///< Seconds of a note that count.
constexpr double kOneOfFit = 0.2;
constexpr int kClasses = 12;

using Classes = std::array<bool, kClasses>;

Classes classesOf(const OpenPitches& open) {
  Classes classes{};
  for (const int pitch : open) classes[static_cast<std::size_t>(pitch % kClasses)] = true;
  return classes;
}

/// Seconds that notes sound.
struct Sounding {
  double all = 0;
  double open = 0;

  void add(const Note& note, const Classes& classes, int sign) {
    const double seconds = sign * std::min(kLongest, note.end - note.onset);
    all += seconds;
    if (classes[static_cast<std::size_t>(note.pitch % kClasses)]) open += seconds;
  }
};

}  // namespace

std::vector<double> openStringFit(const Events& events, std::span<const Note> notes,
                                  const OpenPitches& open) {
  const Classes classes = classesOf(open);
  const double byChance = static_cast<double>(std::ranges::count(classes, true)) / kClasses;
  const auto order = events.byOnset();
  std::vector<double> fit;
  fit.reserve(events.size());
  Sounding sounding;
  std::size_t from = 0;
  std::size_t to = 0;
  for (std::size_t event = 0; event < events.size(); ++event) {
    const double now = events.onset(event);
    for (; to < order.size() && notes[order[to]].onset <= now + kSecondsAround; ++to)
      sounding.add(notes[order[to]], classes, 1);
    for (; notes[order[from]].onset < now - kSecondsAround; ++from)
      sounding.add(notes[order[from]], classes, -1);
    fit.push_back((sounding.open / std::max(sounding.all, 1e-3) - byChance) / kOneOfFit);
  }
  return fit;
}

}  // namespace korvel::fingering
