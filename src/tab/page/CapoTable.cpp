// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/CapoTable.h"

#include <map>
#include <tuple>

#include "music/Pitch.h"
#include "tab/page/ChordNumber.h"
#include "tab/page/PageGrips.h"

namespace korvel {
namespace {

constexpr int kHighestTried = 7;

struct Heard {
  PageSource::Chord chord;
  int ticks = 0;
};

/// Each chord once, with its whole time.
std::vector<Heard> chordsOf(const PageSource& source) {
  std::map<std::tuple<int, std::string, int>, Heard> all;
  for (const PageSource::Chord& chord : source.chords) {
    if (chord.root < 0) continue;
    Heard& heard = all[{chord.root, chord.type, chord.bass}];
    heard.chord = chord;
    heard.ticks += chord.ticks;
  }
  std::vector<Heard> chords;
  for (auto& [name, heard] : all) chords.push_back(std::move(heard));
  return chords;
}

}  // namespace

std::vector<CapoChoice> capoTable(const PageSource& source) {
  const std::vector<Heard> chords = chordsOf(source);
  const int key = source.key.value_or(guessedKey(source.chords));
  std::vector<CapoChoice> table;
  for (int fret = 0; fret <= kHighestTried; ++fret) {
    PageGrips grips(source.open, fret);
    CapoChoice choice{fret, "", 0, 0, static_cast<int>(chords.size())};
    const int mode = key >= kNotesPerOctave ? kNotesPerOctave : 0;
    if (key >= 0) choice.key = nameOfKey(pitchClass(key - fret) + mode);
    double all = 0;
    for (const Heard& heard : chords) {
      all += heard.ticks;
      if (!grips.isOpenChord(heard.chord)) continue;
      choice.open += heard.ticks;
      ++choice.openNames;
    }
    if (all > 0) choice.open /= all;
    table.push_back(std::move(choice));
  }
  return table;
}

int bestCapo(std::span<const CapoChoice> table) {
  constexpr double kPerFret = 0.03;
  int best = 0;
  double most = -1;
  for (const CapoChoice& choice : table) {
    const double worth = choice.open - kPerFret * choice.fret;
    if (worth <= most) continue;
    most = worth;
    best = choice.fret;
  }
  return best;
}

}  // namespace korvel
