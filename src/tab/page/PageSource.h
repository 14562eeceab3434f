// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "arrange/hands/HandShapes.h"
#include "music/Neck.h"

namespace korvel {

/// What a page of chords is made of, as it sounds and wherever it comes from. Ticks are twelfths of
/// a beat and count from the first bar line; of a song without bars they are its chords, and each
/// change is a bar.
struct PageSource {
  struct Chord {
    int tick = 0;
    int ticks = 0;              ///< Until the next chord begins.
    int root = -1;              ///< Pitch class, 0..11 with C = 0; -1 where no chord is.
    std::string type;           ///< What is written behind the root, such as "m7".
    unsigned pitchClasses = 0;  ///< Its tones, bit n for pitch class n; 0 when nobody knows.
    int bass = -1;              ///< Pitch class, where it is another than the root.
    bool isDoubtful = false;    ///< Hardly more probable than others.
    /// As it is played, counted from the nut; none where its tones are not struck together.
    std::optional<ChordShape> shape{};
    int index = 0;  ///< Of the first chord of the song that has the name.
  };
  struct Bar {
    int tick = 0;
    int ticks = 0;
    int beat = 4;  ///< Of the time signature.
    int beattype = 4;
    int number = 0;  ///< As the tablature counts it: 0 a pick-up.
  };
  /// Words that are sung from there on.
  struct Words {
    int tick = 0;
    std::string text;
  };

  std::string title;
  std::string artist;
  std::optional<int> key;  ///< Pitch class of the tonic, 12 more in minor.
  int capo = 0;            ///< That it is played with; shapes count from the nut all the same.
  double tempo = 0;        ///< Beats a minute; 0 when nobody knows.
  bool isInBars = false;
  OpenPitches open = kStandardPitches;  ///< Without the capo.
  std::vector<Bar> bars{};              ///< Without gaps, all chords in them.
  std::vector<Chord> chords{};          ///< By tick, without gaps.
  std::vector<Words> words{};           ///< By tick.
};

/// The chord of a page in which a chord of its song lies, by its index in `allChords`; null before
/// the first one.
const PageSource::Chord* chordAtIndex(const PageSource& source, int index);
/// Whether they have one name.
bool isCalledAlike(const PageSource::Chord& chord, const PageSource::Chord& other);

/// A chord that sounds so many half tones higher, without the shape that it was played in.
PageSource::Chord movedChord(PageSource::Chord chord, int halfTones);

}  // namespace korvel
