// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/OpenKey.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Pitch.h"
#include "workflow/arranging/SongCommands.h"
#include "workflow/arranging/guided/ChordSheet.h"
#include "workflow/arranging/guided/EasyGrips.h"

namespace korvel {
namespace {

/// The nearest first, so that it is taken among equals.
constexpr std::array kTranspositions{0, -1, 1, -2, 2, -3, 3, -4, 4, -5, 5, 6};
constexpr std::array kCapos{0, -1, -2, -3, -4, -5, -6, -7};

/// How often a song has each chord or note.
class Occurrences {
 public:
  explicit Occurrences(QBSong& song) : m_strings(openStringsOf(&song)), m_grips(m_strings) {
    const ChordSheet sheet(song, true);
    for (const ChordSheet::Step& step : sheet.steps())
      if (step) addChord(*step);
    if (sheet.isEmpty()) addNotes(song);
  }

  /// How many are easy once they are moved.
  int easyAt(int halfTones) {
    int count = 0;
    for (const auto& [name, times] : m_chords)
      if (m_grips.isOpen({pitchClass(name.baseTone + halfTones), name.harmony})) count += times;
    for (std::size_t note = 0; note < m_notes.size(); ++note)
      if (isOpenString(static_cast<int>(note) + halfTones)) count += m_notes[note];
    return count;
  }

 private:
  struct Chord {
    ChordName name;
    int times;
  };

  void addChord(const ChordName& name) {
    const auto known = std::ranges::find_if(m_chords, [&](const Chord& each) {
      return each.name.baseTone == name.baseTone && each.name.harmony == name.harmony;
    });
    if (known == m_chords.end())
      m_chords.push_back({name, 1});
    else
      ++known->times;
  }

  void addNotes(QBSong& song) {
    for (const auto& chord : song.allChords())
      for (const auto& tone : tonesOf(*chord))
        if (tone->isActive())
          ++m_notes.at(static_cast<std::size_t>(pitchClass(largeToneOf(*tone))));
  }

  bool isOpenString(int note) const {
    return std::ranges::any_of(m_strings.pitches(),
                               [note](int pitch) { return pitchClass(pitch) == pitchClass(note); });
  }

  OpenStrings m_strings;
  EasyGrips m_grips;
  std::vector<Chord> m_chords;
  std::array<int, kNotesPerOctave> m_notes{};  ///< Of a song without names of chords.
};

int bestOf(std::span<const int> candidates, QBSong& song) {
  Occurrences occurrences(song);
  return *std::ranges::max_element(candidates, {},
                                   [&](int halfTones) { return occurrences.easyAt(halfTones); });
}

}  // namespace

int halfTonesTo(EasyKey key, QBSong& song) {
  if (key == EasyKey::transposed) return bestOf(kTranspositions, song);
  return key == EasyKey::capo ? bestOf(kCapos, song) : 0;
}

std::string_view transpositionTag(int halfTones) {
  if (halfTones == 0) return "";
  const std::string command =
      (halfTones > 0 ? "transposeUpBy" : "transposeDownBy") + std::to_string(std::abs(halfTones));
  return findSongCommand(command)->tag;
}

}  // namespace korvel
