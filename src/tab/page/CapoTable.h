// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

/// What is played with a capo at some fret so that it sounds as it does.
struct CapoChoice {
  int fret = 0;       ///< The shapes lie so many half tones below what sounds.
  std::string key;    ///< That of the shapes, such as "G"; "" when it is not known.
  double open = 0;    ///< The share of the time in which open chords are held.
  int openNames = 0;  ///< Of how many chords the shapes are open ones.
  int names = 0;      ///< How many chords there are.
};

/// For the frets 0 to 7.
std::vector<CapoChoice> capoTable(const PageSource& source);
/// The fret with most open chords; one further up has to be clearly better for each fret.
int bestCapo(std::span<const CapoChoice> table);

}  // namespace korvel
