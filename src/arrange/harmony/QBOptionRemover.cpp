// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBOptionRemover.h"

#include <algorithm>
#include <array>
#include <utility>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kSeventh = 3;

/// The half tones from the root to a tone of the harmony: the steps add up.
int intervalTo(QBHarmony& harmony, std::size_t place) {
  int interval = 0;
  for (std::size_t i = 0; i <= place; ++i)
    interval = addNotes(interval, harmony.allTones().at(i)->step());
  return interval;
}

/// Beyond the octave ninths, elevenths and thirteenths have three or four half tones each.
int optionOf(int place, int interval) {
  constexpr std::array kFirstOfOptions{kNotesPerOctave, 16,
                                       19};  // of the options after the seventh
  if (place <= kSeventh && interval < kNotesPerOctave) return place;
  const auto beyond = std::ranges::count_if(kFirstOfOptions, [&](int f) { return interval >= f; });
  return kSeventh + static_cast<int>(beyond);
}

}  // namespace

QBOptionRemover::QBOptionRemover(std::vector<int> options, Counted counted)
    : m_options(std::move(options)), m_counted(counted) {
  std::ranges::sort(m_options);
}

void QBOptionRemover::execute(QBChord*, QBChord* current, QBChord*) {
  if (!current->harmony() || !current->hold()) return;
  if (removeOptions(*current))
    current->setHarmony(findHarmonyByChord(QBTabMgr::of(*current), *current));
}

bool QBOptionRemover::removeOptions(const QBChord& chord) const {
  QBHarmony& harmony = *chord.harmony();
  bool removed = false;
  for (std::size_t place = 0; place < harmony.allTones().size(); ++place) {
    const int interval = intervalTo(harmony, place);
    const int at = static_cast<int>(place);
    const int option = m_counted == Counted::byPlace ? at : optionOf(at, interval);
    if (std::ranges::find(m_options, option) == m_options.end()) continue;
    if (chord.hold()->removeTonesByNote(pitchClass(addNotes(chord.baseTone(), interval))))
      removed = true;
  }
  return removed;
}

}  // namespace korvel
