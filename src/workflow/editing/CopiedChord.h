// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace korvel {

class QBChord;
class QBHold;
class QBSong;
class QBTone;

/// What makes another chord like one: a copy, which outlives the chord. The name goes with the
/// tones.
struct CopiedChord {
  struct Tone {
    Tone(int ofString, int ofFret, double loudness, int length, bool sounds);
    explicit Tone(const QBTone& tone);
    /// A tone like this one on that string and fret, with ticks where the chord has some.
    void addTo(QBHold& hold, int onString, int onFret) const;

    int string;
    int fret;
    double amp;
    int duration;
    bool active;
    int ticks = 0;  ///< None when it was not in a song on beats.
  };

  explicit CopiedChord(const QBChord& chord);
  CopiedChord(std::vector<Tone> itsTones, int sixteenths);
  /// From first to last, by their indexes in `allChords`.
  static std::vector<CopiedChord> of(QBSong& song, int first, int last);

  std::vector<Tone> tones;
  int duration;
  int ticks = 0;  ///< None when it was not in a song on beats.
};

}  // namespace korvel
