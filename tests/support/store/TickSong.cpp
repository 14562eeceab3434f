// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/TickSong.h"

#include <sstream>

#include "music/Ticks.h"

namespace korvel::test {
namespace {

QBChord* addChordOf(QBSong* song, const std::string& text, bool compound) {
  std::istringstream rest(text.substr(text.find(':') + 1));
  int ticks = 0;
  rest >> ticks;
  QBChord* chord =
      addChord(song, text.substr(0, text.find(':')), sixteenthsBetween(0, ticks, compound));
  chord->setTicks(ticks);
  for (QBTone* tone : chord->hold()->tones()) tone->setTicks(ticks);
  for (char kind = 0; rest >> kind >> ticks;) {
    for (QBTone* tone : chord->hold()->tones()) {
      tone->setTicks(ticks);
      if (kind == '/') break;
    }
  }
  return chord;
}

}  // namespace

void addBars(QBSong* song, int beat, int beattype, const std::string& bars) {
  std::istringstream texts(bars);
  for (std::string bar; std::getline(texts, bar, '|');) {
    QBMeasure* measure = QBTabMgr::db().createMeasure(song, beat, beattype);
    std::istringstream chords(bar);
    for (std::string chord; chords >> chord;)
      measure->addChord(addChordOf(song, chord, isCompound(beat, beattype)));
  }
}

}  // namespace korvel::test
