// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ReadFacts.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "music/Pitch.h"
#include "platform/text/Blanks.h"
#include "tab/chordpro/ReadNames.h"
#include "tab/chordpro/ReadWords.h"

namespace korvel {

void ReadFacts::tell(const std::string& name, std::string_view value) {
  if (name == "title" || name == "t")
    m_song.title = value;
  else if (name == "artist" || ((name == "subtitle" || name == "st") && m_song.artist.empty()))
    m_song.artist = value;
  else if (name == "key")
    tellKey(value);
  else if (name == "capo")
    m_song.capo = static_cast<int>(std::clamp(numberIn(value).value_or(0), 0.0, 11.0));
  else if (name == "tempo")
    m_song.tempo = std::clamp(numberIn(value).value_or(0), 0.0, 1000.0);
  else if (name == "define" || name == "chord")
    define(value);
}

void ReadFacts::tellKey(std::string_view value) {
  std::string_view root = value.substr(0, value.find_first_of(" m"));
  const auto note = noteOfName(root);
  if (!note) return;
  const std::string_view mode = platform::trimmed(value.substr(root.size()));
  const bool isMinor = mode.starts_with('m') && !mode.starts_with("maj");
  m_song.key = *note + (isMinor ? kNotesPerOctave : 0);
}

/// "Am base-fret 1 frets x 0 2 2 1 0 fingers ..."
void ReadFacts::define(std::string_view value) {
  const auto words = wordsIn(value);
  const auto frets = std::ranges::find(words, "frets");
  if (words.empty() || std::distance(frets, words.end()) <= kStrings) return;
  int base = 1;
  if (const auto at = std::ranges::find(words, "base-fret"); words.end() - at > 1)
    base = std::max(1, wholeIn(*(at + 1), fingering::FingeringOptions::kMostFrets).value_or(1));
  ChordShape shape;
  for (std::size_t s = 0; s < shape.size(); ++s) {
    const auto fret = numberIn(*(frets + 1 + static_cast<std::ptrdiff_t>(s)));
    const int told = fret && *fret >= 0 && *fret <= 24 ? static_cast<int>(*fret) : kNotPlayed;
    shape[s] = told > 0 ? told + base - 1 : told;
  }
  m_names.define(words.front(), shape);
}

}  // namespace korvel
