// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceTuning.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/ConcertPitch.h"
#include "music/NoteName.h"
#include "music/Pitch.h"
#include "workflow/library/TuningEdits.h"

namespace korvel {
namespace {

bool isTunedTo(QBTuning& tuning, const OpenPitches& open) {
  return tuning.openStrings().pitches() == open;
}

std::string nameOfStrings(const QBTabMgr& db, const OpenPitches& open) {
  std::string name;
  if (const auto known = knownTuningOf(open))
    name = nameOf(*known);
  else
    for (const int pitch : open) name += (name.empty() ? "" : " ") + noteName(pitch);
  const auto isTaken = [&](const auto& each) { return each->descr() == name; };
  while (std::ranges::any_of(db.tunings(), isTaken)) name += "_2";
  return name;
}

/// As precise as those of the user are.
float roundedHertzOf(int pitch) {
  constexpr double kHundredths = 100;
  return static_cast<float>(std::round(hertzOfNote(pitch) * kHundredths) / kHundredths);
}

QBTuning* madeTuning(QBTabMgr& db, const OpenPitches& open) {
  int last = 0;
  for (const auto& tuning : db.tunings()) last = std::max(last, tuning->order());
  QBTuning* tuning = db.createTuning(nameOfStrings(db, open), last + 1);
  for (int string = 0; string < kStrings; ++string) {
    const int pitch = open[static_cast<std::size_t>(string)];
    db.createString(tuning, pitchClass(pitch), string, roundedHertzOf(pitch));
  }
  return tuning;
}

}  // namespace

QBTuning* tuningFor(QBTabMgr& db, const OpenPitches& open) {
  QBTuning* selected = db.selectedTuning();
  if (selected && isTunedTo(*selected, open)) return selected;
  const auto& all = db.tunings();
  const auto found =
      std::ranges::find_if(all, [&](const auto& each) { return isTunedTo(*each, open); });
  return found == all.end() ? madeTuning(db, open) : found->get();
}

}  // namespace korvel
